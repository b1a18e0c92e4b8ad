#pragma once

#include "values/Array.h"
#include "values/Dictionary.h"

#include <vector>

// What a document holds: the keys of contact records, category records and captions, and new ones of all
// three. Records, categories and captions are plain dictionaries, so a new field is a new key and a row of
// ContactFields; the keys stand in files and never change.

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
inline const Foundation::Key pager{u"pager"}; // Shown as the work mobile; the name is in every file.
inline const Foundation::Key emailPersonal{u"emailPersonal"};
inline const Foundation::Key webPersonal{u"webPersonal"};
inline const Foundation::Key addressPersonal{u"addressPersonal"};
inline const Foundation::Key note{u"note"};
inline const Foundation::Key creationDate{u"creationDate"};
// Only ever written: 0 in a new record, absent in a duplicate.
inline const Foundation::Key usageCount{u"usageCount"};
// Reference to an entry of the document's category array; never in a file.
inline const Foundation::Key categoryPtr{u"categoryPtr"};
// Stands in files in place of categoryPtr, and stays in the live record as it was read.
inline const Foundation::Key cat_uniqueID{u"cat_uniqueID"};
inline const Foundation::Key isCompany{u"isCompany"};
// Only in records of old releases: carried along and searched.
inline const Foundation::Key category{u"category"};
inline const Foundation::Key resultingName{u"resultingName"};
// Lives in a record only while a text import is under way.
inline const Foundation::Key categoryNAME{u"categoryNAME"};
} // namespace RecordKey

namespace CategoryKey
{
inline const Foundation::Key cat_category{u"cat_category"};
inline const Foundation::Key cat_backColor{u"cat_backColor"};
inline const Foundation::Key cat_textColor{u"cat_textColor"};
inline const Foundation::Key cat_howManyUsingThis{u"cat_howManyUsingThis"};
inline const Foundation::Key cat_uniqueID{u"cat_uniqueID"};
inline const Foundation::Key records{u"records"}; // Always empty, and left out of files.
} // namespace CategoryKey

// The sixteen texts of a contact in the order in which a new record gets them.
const std::vector<Foundation::Key> &contactTextKeys();

// A new record of the nineteen keys that every new record has.
Foundation::Ref<Foundation::Dictionary>
newContactRecord(const Foundation::Ref<Foundation::Dictionary> &category, double secondsSince2001);

// A new category record of the six keys, in mid grey with white text.
Foundation::Ref<Foundation::Dictionary> newCategoryRecord(const QString &name, qint64 uniqueID);

// A fresh dictionary of the captions of all fields and of their open flags, open01 to open15.
Foundation::Ref<Foundation::Dictionary> defaultLabelDictionary();
// Sets the open flags to their defaults, as reading a file of 30100 to 30301 demands.
void resetOpenFlags(Foundation::Dictionary &labels);

// Seventeen key entries in the fixed order of exports and imports, each of `publicKey`, the title of a field,
// and `innerKey`, the key path into a record. The caller may change the arrays.
Foundation::Ref<Foundation::Array> newArrayForExport();
Foundation::Ref<Foundation::Array> newArrayForImport();
