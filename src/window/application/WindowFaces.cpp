#include "window/application/WindowFaces.h"

#include <QApplication>

namespace
{

constexpr int UsualListWidth = 280;
constexpr QSize LeastLockedSize(560, 340);
// The minimum widths of the list and the detail.
constexpr QSize LeastOpenSize(662, 420);

} // namespace

WindowFaces::WindowFaces(MyDocument *document, WindowFrame &frame, const Parts &parts)
    : m_document(document)
    , m_frame(frame)
    , m_parts(parts)
    , m_isLockedSinceOpened(document->isEncrypted())
    , m_listWidth(UsualListWidth)
{
    m_parts.window->resize(document->isEncrypted() ? LeastLockedSize : m_frame.usualSize());
    giveListItsWidth();
    connect(document, &VLCryptoDoc::isEncryptedChanged, this, &WindowFaces::releaseFocus);
}

// The bindings are about to hide the focused widget. Without this, the toolbar would get the focus in
// between.
void WindowFaces::releaseFocus()
{
    if (QWidget *focused = m_parts.window->focusWidget())
        focused->clearFocus();
}

void WindowFaces::giveListItsWidth()
{
    m_parts.splitView->setLeftWidth(m_listWidth);
}

void WindowFaces::show()
{
    if (m_document->isEncrypted()) {
        while (QWidget *popUp = QApplication::activePopupWidget())
            popUp->close();
        m_parts.openFace->setParent(&m_unshown);
    } else if (m_parts.openFace->parentWidget() == &m_unshown) {
        m_parts.layoutOfOpenFace->addWidget(m_parts.openFace);
        m_parts.openFace->show();
    }
    m_parts.window->setMinimumSize(m_document->isEncrypted() ? LeastLockedSize : LeastOpenSize);
    (m_document->isEncrypted() ? m_parts.passwordField : m_parts.list)->setFocus();
}

void WindowFaces::change()
{
    if (m_document->isEncrypted())
        m_listWidth = m_parts.splitView->sizes().front();
    show();
    if (m_document->isEncrypted())
        return;
    // If the file contains no frame, the window must leave the small size of its locked view by itself.
    if (std::exchange(m_isLockedSinceOpened, false) && !m_document->useMyWinRect()) {
        m_parts.window->resize(m_frame.usualSize());
        m_frame.center();
    }
    // Later, when the window has its restored size. Otherwise the list would grow with the window.
    QMetaObject::invokeMethod(this, &WindowFaces::giveListItsWidth, Qt::QueuedConnection);
}

bool WindowFaces::isToolbarVisible() const
{
    // Not isVisible(), which is false while the window is hidden.
    return !m_parts.toolbar->isHidden();
}

// The toolbar shows categories and the search text, so a locked window does not contain it either.
void WindowFaces::setToolbarVisible(bool visible)
{
    QToolBar *toolbar = m_parts.toolbar;
    if (!visible && m_document->isEncrypted())
        toolbar->setParent(&m_unshown);
    else if (visible && toolbar->parentWidget() == &m_unshown)
        m_parts.window->addToolBar(toolbar);
    toolbar->setVisible(visible);
}
