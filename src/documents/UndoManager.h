#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace Foundation
{

// Undo and redo as two stacks of recorded inverses. A command records its inverse and names it while it runs;
// undoing runs the inverse, which records the command again, and that becomes the entry of redo. Everything a
// recorded inverse holds stays alive as long as its entry. Main thread only.
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
    // Names the entry recorded last.
    void setActionName(const QString &name);

    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }
    // True while undo() or redo() runs an entry.
    bool isUndoing() const { return m_direction == Direction::Undoing; }
    bool isRedoing() const { return m_direction == Direction::Redoing; }
    // Null without an entry.
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
