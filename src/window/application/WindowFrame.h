#pragma once

#include "values/Geometry.h"

#include <QSize>

class DocumentMainWindow;

// The position and size of a document window, in the coordinates of documents (see WindowPlacement.h).
class WindowFrame
{
public:
    // `window` is not owned and must outlive this object. `usualSize` replaces an empty size.
    WindowFrame(DocumentMainWindow *window, const QSize &usualSize);

    const QSize &usualSize() const { return m_usualSize; }
    Foundation::Rect frame() const;
    // Any frame is accepted: the window is moved so that the user can reach it, and has at least its minimum
    // size.
    void setFrame(const Foundation::Rect &frame);
    // Moves the window to the middle of the screen, but not exactly over another document window.
    void center();

private:
    int titleBarHeight() const;

    DocumentMainWindow *m_window;
    QSize m_usualSize;
};
