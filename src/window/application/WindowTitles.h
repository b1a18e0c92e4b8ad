#pragma once

#include "lifecycle/MyDocument.h"
#include "window/controls/ActionDispatcher.h"
#include "window/controls/TextCommands.h"

#include <QAction>
#include <QMainWindow>

// Updates the titles that depend on the document: that of the window, with its lock and its mark of unsaved
// changes, and those of Undo and Redo, which name the command.
class WindowTitles : public QObject
{
    Q_OBJECT

public:
    // The arguments are not owned and must outlive this object.
    WindowTitles(MyDocument *document, QMainWindow *window, const TextCommands *textCommands);
    // Updates the titles of the items each time the dispatcher has validated the items of the window.
    void follow(ActionDispatcher *dispatcher, QAction *undoItem, QAction *redoItem);

private:
    void updateTitle();

    MyDocument *m_document;
    QMainWindow *m_window;
    const TextCommands *m_textCommands;
};
