#include "window/controls/SearchField.h"

#include "window/desktop/SymbolIcon.h"

#include <QAction>
#include <QKeyEvent>

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
{
    setClearButtonEnabled(true);
    // The icons in the field are buttons for assistive technology.
    for (QAction *clearing : findChildren<QAction *>())
        clearing->setText(tr("Clear"));
    addAction(symbolIcon(QStringLiteral("search")), LeadingPosition)->setText(tr("Search symbol"));
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        clear();
        return;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT left();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}
