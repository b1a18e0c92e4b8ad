#pragma once

#include <QPushButton>

// A button at the lower right of a field that shows only the beginning of a text. Its title says how long the
// text is; a click asks to show all of it.
class WholeTextButton : public QPushButton
{
    Q_OBJECT

public:
    // A child of the field, hidden at first.
    explicit WholeTextButton(QWidget *field);

    // Shows the button, or hides it if the field shows the whole text. Lengths are in UTF-16 units.
    void showFor(qsizetype textLength, qsizetype shownLength);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void placeInField();

    QWidget *m_field;
};
