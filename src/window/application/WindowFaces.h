#pragma once

#include "lifecycle/MyDocument.h"
#include "window/application/WindowFrame.h"
#include "window/controls/RuledSplitView.h"

#include <QBoxLayout>
#include <QMainWindow>
#include <QToolBar>

// The two faces of a document's window: locked, with the field for the password, and open, with the content.
//
// Assistive technology finds what is only hidden. So a locked window does not contain the open face and the
// toolbar at all: they lie in a widget that is never shown.
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
        QWidget *passwordField;    // has the focus first in a locked window
        QWidget *list;             // has it in an open one
    };
    // None is owned; all outlive this. The window gets its first size here.
    WindowFaces(MyDocument *document, WindowFrame &frame, const Parts &parts);

    // Shows the face that the document has now.
    void show();
    // The document was locked or unlocked: shows its other face, with the sizes that the user gave that one.
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
