#include "browse/RecordName.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"

using Foundation::displayText;
using Foundation::Value;

QString displayedNameOfRecord(const Foundation::Dictionary &record)
{
    const Value &company = record.value(RecordKey::company);
    // Required: a company without the key `company` is shown under the name of the person; a company with an
    // empty `company` has an empty name.
    if (record.value(RecordKey::isCompany).boolValue() && !company.isNull())
        return displayText(company);
    return personNameOfRecord(record);
}

QString personNameOfRecord(const Foundation::Dictionary &record)
{
    QString name = displayText(record.value(RecordKey::firstName));
    const Value &lastName = record.value(RecordKey::lastName);
    if (!lastName.isNull()) {
        if (!name.isEmpty())
            name += u' ';
        name += displayText(lastName);
    }
    return name;
}
