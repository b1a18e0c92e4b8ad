#pragma once

#include "values/Geometry.h"

#include <QSize>

class DocumentMainWindow;

// Where a document's window stands on the screens, in the coordinates of documents.
class WindowFrame
{
public:
    // Not owned; outlives this. The usual size stands in for one that makes no sense.
    WindowFrame(DocumentMainWindow *window, const QSize &usualSize);

    Foundation::Rect frame() const;
    // Whatever is asked for, the window stays in reach and no smaller than its minimum.
    void setFrame(const Foundation::Rect &frame);
    // In the middle of the screen, beside other documents' windows and not over them.
    void center();

private:
    int titleBarHeight() const;

    DocumentMainWindow *m_window;
    QSize m_usualSize;
};
