#pragma once

#include "lifecycle/MyDocument.h"
#include "window/application/WindowFrame.h"
#include "window/controls/RuledSplitView.h"

#include <QBoxLayout>
#include <QMainWindow>
#include <QToolBar>

// The two views of a document window: the locked view with the password field, and the open view with the
// content.
//
// Assistive technology also finds hidden widgets. So a locked window does not contain the open view and the
// toolbar at all: they are moved into a widget that is never shown.
class WindowFaces : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        QMainWindow *window;
        QWidget *openFace;
        QBoxLayout *layoutOfOpenFace;
        QToolBar *toolbar;
        RuledSplitView *splitView; // the list beside the detail
        QWidget *passwordField;    // gets the focus in a locked window
        QWidget *list;             // gets the focus in an open window
    };
    // The arguments are not owned and must outlive this object. Sets the initial size of the window.
    WindowFaces(MyDocument *document, WindowFrame &frame, const Parts &parts);

    // Shows the view for the present state of the document.
    void show();
    // Must be called when the document was locked or unlocked. Shows the other view with its former sizes.
    void change();

    bool isToolbarVisible() const;
    void setToolbarVisible(bool visible);

private:
    void releaseFocus();
    void giveListItsWidth();

    MyDocument *m_document;
    WindowFrame &m_frame;
    Parts m_parts;
    QWidget m_unshown;
    bool m_isLockedSinceOpened;
    int m_listWidth;
};
