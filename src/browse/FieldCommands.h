#pragma once

#include "browse/FilteringArrayController.h"
#include "platform/Actions.h"

#include <QObject>

// Opens the web or mail address in a field of the selected contact. If nothing opens, the user is not told. A
// responder of the document.
class FieldCommands : public QObject
{
    Q_OBJECT

public:
    // `records` is not owned and must outlive this object.
    explicit FieldCommands(FilteringArrayController &records, QObject *parent = nullptr)
        : QObject(parent)
        , m_records(records)
    {
    }

    // Opens the field with the tag of the sender. An empty field and an unknown tag open nothing.
    Q_INVOKABLE void openField(const Foundation::ActionSender &sender);
    // These open an empty field too, as an empty address. Prescribed; no caller yet.
    Q_INVOKABLE void openUrlWebWork(const Foundation::ActionSender &sender);
    Q_INVOKABLE void openUrlWebPersonal(const Foundation::ActionSender &sender);

private:
    QString textOfSelection(const Foundation::Key &key) const;

    FilteringArrayController &m_records;
};
