#pragma once

#include "browse/FilteringArrayController.h"
#include "platform/Actions.h"

#include <QObject>

#include <optional>

// Opens what stands in a field of the selected contact, an address of the web or of mail, in the program
// meant for it. Nothing is said where nothing opens. Takes part in the responder chain of its document.
class FieldCommands : public QObject
{
    Q_OBJECT

public:
    static constexpr int FirstFieldTag = 1;
    static constexpr int LastFieldTag = 15;

    // Not owned; outlives the commands.
    explicit FieldCommands(FilteringArrayController &records, QObject *parent = nullptr)
        : QObject(parent)
        , m_records(records)
    {
    }

    // The field with that tag, which is also the number of its open flag among the captions; nothing for any
    // other tag.
    static std::optional<Foundation::Key> fieldOfTag(int tag);

    // The field of the sender's tag. An empty field, or no such tag, opens nothing.
    Q_INVOKABLE void openField(const Foundation::ActionSender &sender);
    // These ask for nothing: an empty field goes on as an address too.
    Q_INVOKABLE void openUrlWebWork(const Foundation::ActionSender &sender);
    Q_INVOKABLE void openUrlWebPersonal(const Foundation::ActionSender &sender);

private:
    QString textOfSelection(const Foundation::Key &key) const;

    FilteringArrayController &m_records;
};
