#pragma once

#include <QObject>

class QKeyEvent;

// An event filter for the application. While a key of Undo or Redo is held, its repetitions go only to the
// focused field and never to the menu: each command of the document may remove a whole contact, so it needs a
// new key press.
class HeldUndoKey : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isRepeated(const QKeyEvent &key) const;

    // Scan code and time of the last released key.
    quint32 m_scanCode = 0;
    quint64 m_timestamp = 0;
};
