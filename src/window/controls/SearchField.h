#pragma once

#include <QLineEdit>

// The search field. Escape clears it; Return and the Down key send left(), so that the focus can move to the
// list.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

Q_SIGNALS:
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
