#include "browse/FieldCommands.h"

#include "core/ContactFields.h"
#include "core/RecordModel.h"
#include "helpers/VLUrlResolutor.h"
#include "values/DisplayText.h"

using Foundation::ActionSender;
using Foundation::Key;

QString FieldCommands::textOfSelection(const Key &key) const
{
    return Foundation::displayText(m_records.valueForSelection(key.name()));
}

void FieldCommands::openField(const ActionSender &sender)
{
    const ContactField *field = contactFieldOfTag(sender.tag);
    const QString address = field ? textOfSelection(field->key) : QString();
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
