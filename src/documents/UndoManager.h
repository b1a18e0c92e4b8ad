#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace Foundation
{

// Undo and redo as two stacks of inverse operations. A command registers its inverse and then names it.
// Undoing runs the inverse, which registers the command again, and this becomes the entry of redo. Everything
// that an operation captures stays alive as long as its entry. Main thread only.
class UndoManager : public QObject
{
    Q_OBJECT

public:
    using Operation = std::function<void()>;

    explicit UndoManager(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    void registerUndo(Operation inverse);
    // Names the entry that was registered last.
    void setActionName(const QString &name);

    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }
    // True while undo() or redo() runs an entry.
    bool isUndoing() const { return m_direction == Direction::Undoing; }
    bool isRedoing() const { return m_direction == Direction::Redoing; }
    // Null if there is nothing to undo or redo.
    QString undoActionName() const { return canUndo() ? m_undo.back().name : QString(); }
    QString redoActionName() const { return canRedo() ? m_redo.back().name : QString(); }
    void undo();
    void redo();
    void removeAllActions();

Q_SIGNALS:
    void changed();

private:
    struct Entry
    {
        Operation inverse;
        QString name;
    };
    enum class Direction { None, Undoing, Redoing };

    std::vector<Entry> &recordingStack() { return m_direction == Direction::Undoing ? m_redo : m_undo; }
    void run(std::vector<Entry> &stack, Direction direction);

    std::vector<Entry> m_undo;
    std::vector<Entry> m_redo;
    Direction m_direction = Direction::None;
};

} // namespace Foundation
