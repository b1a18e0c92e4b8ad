#include "documents/UndoManager.h"

namespace Foundation
{

void UndoManager::registerUndo(Operation inverse)
{
    recordingStack().push_back({std::move(inverse), QString()});
    if (m_direction == Direction::None)
        m_redo.clear(); // After a new command, undone commands cannot be redone.
    Q_EMIT changed();
}

void UndoManager::setActionName(const QString &name)
{
    auto &stack = recordingStack();
    if (!stack.empty())
        stack.back().name = name;
    Q_EMIT changed();
}

void UndoManager::undo()
{
    run(m_undo, Direction::Undoing);
}

void UndoManager::redo()
{
    run(m_redo, Direction::Redoing);
}

void UndoManager::run(std::vector<Entry> &stack, Direction direction)
{
    if (stack.empty() || m_direction != Direction::None)
        return;
    const Entry entry = std::move(stack.back());
    stack.pop_back();
    m_direction = direction;
    entry.inverse();
    m_direction = Direction::None;
    Q_EMIT changed();
}

void UndoManager::removeAllActions()
{
    m_undo.clear();
    m_redo.clear();
    Q_EMIT changed();
}

} // namespace Foundation
