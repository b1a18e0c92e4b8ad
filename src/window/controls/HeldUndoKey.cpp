#include "window/controls/HeldUndoKey.h"

#include <QKeyEvent>

bool HeldUndoKey::isRepeated(const QKeyEvent &key) const
{
    // X11 sends the repetition of a key as a release and a press with the same time. The toolkit does not
    // recognise the repetition if it reads the release before the press has arrived.
    return key.isAutoRepeat() || (key.nativeScanCode() != 0 && key.nativeScanCode() == m_scanCode &&
                                  key.timestamp() == m_timestamp);
}

bool HeldUndoKey::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease) {
        const auto *key = static_cast<QKeyEvent *>(event);
        m_scanCode = key->nativeScanCode();
        m_timestamp = key->timestamp();
        return false;
    }
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    if ((!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo)) || !isRepeated(*key))
        return false;
    key->accept(); // The key goes only to the focused widget.
    return true;
}
