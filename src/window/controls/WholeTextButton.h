#pragma once

#include <QPushButton>

// Stands at the lower right of a field that shows only the beginning of a text: says how long the text is and
// asks, by its click, to show all of it.
class WholeTextButton : public QPushButton
{
    Q_OBJECT

public:
    // A child of the field, hidden at first.
    explicit WholeTextButton(QWidget *field);

    // Hidden where the field shows all.
    void showFor(qsizetype textLength, qsizetype shownLength);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void placeInField();

    QWidget *m_field;
};
