#pragma once

#include "values/Array.h"
#include "values/Dictionary.h"

#include <vector>

// The keys of contact records, categories and captions, and functions that make new ones. All three are
// dictionaries. The keys are stored in files and never change. A new field needs a key here and a row in
// ContactFields.cpp.

namespace RecordKey
{
inline const Foundation::Key firstName{u"firstName"};
inline const Foundation::Key lastName{u"lastName"};
inline const Foundation::Key company{u"company"};
inline const Foundation::Key phoneWork{u"phoneWork"};
inline const Foundation::Key faxWork{u"faxWork"};
inline const Foundation::Key emailWork{u"emailWork"};
inline const Foundation::Key addressWork{u"addressWork"};
inline const Foundation::Key webWork{u"webWork"};
inline const Foundation::Key phonePersonal{u"phonePersonal"};
inline const Foundation::Key faxPersonal{u"faxPersonal"};
inline const Foundation::Key mobile{u"mobile"};
inline const Foundation::Key pager{u"pager"}; // Shown as the work mobile. The name is stored in every file.
inline const Foundation::Key emailPersonal{u"emailPersonal"};
inline const Foundation::Key webPersonal{u"webPersonal"};
inline const Foundation::Key addressPersonal{u"addressPersonal"};
inline const Foundation::Key note{u"note"};
inline const Foundation::Key creationDate{u"creationDate"};
// Never read: 0 in a new record, absent in a duplicate.
inline const Foundation::Key usageCount{u"usageCount"};
// Reference to an entry of the document's category array. Never written to a file.
inline const Foundation::Key categoryPtr{u"categoryPtr"};
// Written to files in place of categoryPtr. The record in memory keeps the value that was read.
inline const Foundation::Key cat_uniqueID{u"cat_uniqueID"};
inline const Foundation::Key isCompany{u"isCompany"};
// Only in records from old releases. They are kept and searched.
inline const Foundation::Key category{u"category"};
inline const Foundation::Key resultingName{u"resultingName"};
// Reserved for records during a text import. Prescribed; no caller yet.
inline const Foundation::Key categoryNAME{u"categoryNAME"};
} // namespace RecordKey

namespace CategoryKey
{
inline const Foundation::Key cat_category{u"cat_category"};
inline const Foundation::Key cat_backColor{u"cat_backColor"};
inline const Foundation::Key cat_textColor{u"cat_textColor"};
inline const Foundation::Key cat_howManyUsingThis{u"cat_howManyUsingThis"};
inline const Foundation::Key cat_uniqueID{u"cat_uniqueID"};
inline const Foundation::Key records{u"records"}; // Always empty, and never written to a file.
} // namespace CategoryKey

// The keys of the texts of a new record, in their order.
const std::vector<Foundation::Key> &contactTextKeys();

// A new record: the texts, a creation date, a use count of 0 and the category.
Foundation::Ref<Foundation::Dictionary>
newContactRecord(const Foundation::Ref<Foundation::Dictionary> &category, double secondsSince2001);

// A new category with six keys, grey with white text.
Foundation::Ref<Foundation::Dictionary> newCategoryRecord(const QString &name, qint64 uniqueID);

// A new dictionary with the default captions of all fields and the default flags ("open01" and so on).
Foundation::Ref<Foundation::Dictionary> defaultLabelDictionary();
// Sets the flags to their defaults, as required when a file of format 30100 to 30301 is read.
void resetOpenFlags(Foundation::Dictionary &labels);

// New arrays with a dictionary for each field in the order of exports and imports: `publicKey` is the title
// of the field and `innerKey` the key path in a record. The caller may change them.
Foundation::Ref<Foundation::Array> newArrayForExport();
Foundation::Ref<Foundation::Array> newArrayForImport();
