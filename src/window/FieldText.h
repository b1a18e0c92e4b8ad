#pragma once

#include <QTextEdit>

// Plain text that can be read, selected and copied, as high as its content at the width given. Breaks at
// words, and within them where one alone is too wide.
class FieldText : public QTextEdit
{
    Q_OBJECT

public:
    explicit FieldText(QWidget *parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
