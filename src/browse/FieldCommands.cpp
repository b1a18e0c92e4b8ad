#include "browse/FieldCommands.h"

#include "core/RecordModel.h"
#include "helpers/VLUrlResolutor.h"
#include "values/DisplayText.h"

#include <array>

using Foundation::ActionSender;
using Foundation::Key;

std::optional<Key> FieldCommands::fieldOfTag(int tag)
{
    static const std::array<Key, LastFieldTag> fields = {
        RecordKey::firstName,     RecordKey::lastName,      RecordKey::company,        RecordKey::phoneWork,
        RecordKey::faxWork,       RecordKey::pager,         RecordKey::emailWork,      RecordKey::webWork,
        RecordKey::addressWork,   RecordKey::phonePersonal, RecordKey::faxPersonal,    RecordKey::mobile,
        RecordKey::emailPersonal, RecordKey::webPersonal,   RecordKey::addressPersonal};
    if (tag < FirstFieldTag || tag > LastFieldTag)
        return std::nullopt;
    return fields[std::size_t(tag - FirstFieldTag)];
}

QString FieldCommands::textOfSelection(const Key &key) const
{
    return Foundation::displayText(m_records.valueForSelection(key.name()));
}

void FieldCommands::openField(const ActionSender &sender)
{
    const auto field = fieldOfTag(sender.tag);
    const QString address = field ? textOfSelection(*field) : QString();
    if (!address.isEmpty())
        VLUrlResolutor::sharedUrlResolutor().openUrl(address);
}

void FieldCommands::openUrlWebWork(const ActionSender &)
{
    VLUrlResolutor::sharedUrlResolutor().openUrl(textOfSelection(RecordKey::webWork));
}

void FieldCommands::openUrlWebPersonal(const ActionSender &)
{
    VLUrlResolutor::sharedUrlResolutor().openUrl(textOfSelection(RecordKey::webPersonal));
}
