#include "window/controls/TextCommands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>

using Foundation::ActionSender;

namespace
{

// The abilities of a focused widget for text.
struct TextState
{
    bool isWritable = false;
    bool hasSelection = false;
    bool canSelectAll = false;
    bool canUndo = false;
    bool canRedo = false;
};

template <class Editor>
TextState stateOfEditor(const Editor &editor)
{
    const bool isWritable = !editor.isReadOnly();
    return {isWritable, editor.textCursor().hasSelection(), true,
            isWritable && editor.document()->isUndoAvailable(),
            isWritable && editor.document()->isRedoAvailable()};
}

TextState stateOf(const QWidget *widget)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(widget)) {
        const bool isShown = line->echoMode() == QLineEdit::Normal;
        return {!line->isReadOnly(), line->hasSelectedText() && isShown, true, line->isUndoAvailable(),
                line->isRedoAvailable()};
    }
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(widget))
        return stateOfEditor(*text);
    if (const auto *text = qobject_cast<const QTextEdit *>(widget))
        return stateOfEditor(*text);
    TextState state;
    state.canSelectAll = qobject_cast<const QAbstractItemView *>(widget) != nullptr;
    return state;
}

} // namespace

TextCommands::TextCommands(QWidget *window)
    : m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this, &TextCommands::focusMoved);
    for (auto *field : window->findChildren<QLineEdit *>())
        field->installEventFilter(this);
    for (auto *field : window->findChildren<QPlainTextEdit *>())
        field->installEventFilter(this);
}

void TextCommands::focusMoved(QWidget *, QWidget *now)
{
    // The menu bar has the focus while the user operates it by keys; its commands apply to the former focus
    // widget.
    if (now && now->window() == m_window && !qobject_cast<QMenuBar *>(now))
        m_focused = now;
}

void TextCommands::call(const char *slot)
{
    if (m_focused)
        QMetaObject::invokeMethod(m_focused, slot);
}

bool TextCommands::takes(const QString &action) const
{
    const TextState state = stateOf(m_focused);
    if (action == u"undo")
        return state.canUndo;
    if (action == u"redo")
        return state.canRedo;
    return true;
}

bool TextCommands::validateMenuItem(Foundation::MenuItem &item)
{
    const TextState state = stateOf(m_focused);
    if (item.action == u"cut")
        return state.hasSelection && state.isWritable;
    if (item.action == u"copy")
        return state.hasSelection;
    if (item.action == u"paste")
        return state.isWritable;
    if (item.action == u"selectAll")
        return state.canSelectAll;
    return item.action == u"undo" ? state.canUndo : state.canRedo;
}

void TextCommands::cut(const ActionSender &)
{
    call("cut");
}

void TextCommands::copy(const ActionSender &)
{
    call("copy");
}

void TextCommands::paste(const ActionSender &)
{
    call("paste");
}

void TextCommands::selectAll(const ActionSender &)
{
    call("selectAll");
}

void TextCommands::undo(const ActionSender &)
{
    call("undo");
}

void TextCommands::redo(const ActionSender &)
{
    call("redo");
}

bool TextCommands::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(object, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return false;
    // A field accepts these keys even if it has nothing to undo, and the commands of the document could not
    // be used while a field has the focus. Here the field does not get them; the menu gets them and sends the
    // action to the field or the document.
    Q_EMIT shortcutIsComing();
    event->ignore();
    return true;
}
