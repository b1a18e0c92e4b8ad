#pragma once

#include <QLineEdit>

// The field that searches the list as one types. Escape empties it; Return and the arrow down go on to what
// was found.
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
