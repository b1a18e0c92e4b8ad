#pragma once

#include "lifecycle/MyDocument.h"
#include "window/controls/ActionDispatcher.h"
#include "window/controls/TextCommands.h"

#include <QAction>
#include <QMainWindow>

// The titles of a document's window that follow the document: that of the window, with its lock and its mark
// of unsaved changes, and those of Undo and Redo, which name what they would undo.
class WindowTitles : public QObject
{
    Q_OBJECT

public:
    // None is owned; all outlive this.
    WindowTitles(MyDocument *document, QMainWindow *window, const TextCommands *textCommands);
    // The items get their titles whenever the dispatcher has validated the items of the window.
    void follow(ActionDispatcher *dispatcher, QAction *undoItem, QAction *redoItem);

private:
    void updateTitle();

    MyDocument *m_document;
    QMainWindow *m_window;
    const TextCommands *m_textCommands;
};
