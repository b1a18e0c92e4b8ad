#pragma once

#include <QObject>

class QKeyEvent;

// Keeps a held key of Undo or Redo with the field that has the focus. A field goes on through its own steps;
// the menu's commands, of which each may take a whole contact away, want a new press. Installed on the
// application.
class HeldUndoKey : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isRepeated(const QKeyEvent &key) const;

    // Of the last key that went up.
    quint32 m_scanCode = 0;
    quint64 m_timestamp = 0;
};
