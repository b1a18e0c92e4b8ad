#include "window/controls/HeldUndoKey.h"

#include <QKeyEvent>

bool HeldUndoKey::isRepeated(const QKeyEvent &key) const
{
    // X11 repeats a key as a release and a press of the same moment. The toolkit does not recognise them if
    // it happens to read the one before the other has come.
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
    key->accept(); // The key goes to the widget with the focus and no further.
    return true;
}
