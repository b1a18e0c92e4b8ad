#include "browse/RecordName.h"

#include "core/RecordModel.h"

using Foundation::Value;

QString displayedNameOfRecord(const Foundation::Dictionary &record)
{
    const Value &company = record.value(RecordKey::company);
    // Absent is not empty: a company without the key falls back to the person's name, one that was emptied
    // shows an empty name.
    if (record.value(RecordKey::isCompany).boolValue() && !company.isNull())
        return company.stringValue();
    QString name = record.value(RecordKey::firstName).stringValue();
    const Value &lastName = record.value(RecordKey::lastName);
    if (!lastName.isNull()) {
        if (!name.isEmpty())
            name += u' ';
        name += lastName.stringValue();
    }
    return name;
}
