#pragma once

#include <QTextEdit>

class WholeTextButton;

// Read-only plain text that can be selected and copied, as high as its content. Lines break between words,
// and inside a word that is wider than the line. A link has the colour of links, can be reached by Tab, and
// sends opened() at a click, Return or the space bar.
class FieldText : public QTextEdit
{
    Q_OBJECT

public:
    explicit FieldText(QWidget *parent = nullptr);

    // If the text is too long to be laid out, only its beginning is shown, with a button that opens all of
    // it.
    void showText(const QString &text);
    // A note for printed pages if the text is shortened, otherwise empty.
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

    WholeTextButton *m_button = nullptr; // null until it is needed
    qsizetype m_textLength = 0;
    bool m_isLink = false;
    QPoint m_pressedAt;
};
