#pragma once

#include <QTextEdit>

class WholeTextButton;

// Plain text that can be read, selected and copied, as high as its content at the width given. Breaks at
// words, and within them where one alone is too wide. As a link it looks like one, is reached by Tab, and
// asks to be opened by a click, Return or the space bar.
class FieldText : public QTextEdit
{
    Q_OBJECT

public:
    explicit FieldText(QWidget *parent = nullptr);

    // Of a text that is too long to be laid out only the beginning is shown, with a button for all of it.
    void showText(const QString &text);
    // What a printed page says where the text is shortened, otherwise empty.
    QString shorteningNote() const;

    bool isLink() const { return m_isLink; }
    void setLink(bool isLink);
    QColor shownColor() const;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void opened();
    void wholeTextWanted();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void showColor();
    int roomForButton() const;

    WholeTextButton *m_button = nullptr; // made when it is needed first
    qsizetype m_textLength = 0;
    bool m_isLink = false;
    QPoint m_pressedAt;
};
