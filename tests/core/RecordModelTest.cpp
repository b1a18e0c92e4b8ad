#include "core/RecordModel.h"

#include "DocumentJson.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

using Foundation::Array;
using Foundation::Value;

TEST(RecordModel, ANewRecordHasNineteenKeysAndItsCategoryByReference)
{
    const auto category = newCategoryRecord(u"Work"_qs, 4);
    const auto record = newContactRecord(category, 1.5);
    EXPECT_EQ(record->count(), 19);
    EXPECT_EQ(record->value(RecordKey::categoryPtr).dictionary(), category);
    record->setValue(RecordKey::categoryPtr, Value());
    EXPECT_EQ(
        jsonOfEntries(*record).toStdString(),
        R"({"firstName":"First Name","lastName":"Last Name","company":"","phoneWork":"","faxWork":"",)"
        R"("emailWork":"","addressWork":"","webWork":"","phonePersonal":"","faxPersonal":"","mobile":"",)"
        R"("pager":"","emailPersonal":"","webPersonal":"","addressPersonal":"","note":"",)"
        R"("creationDate":{"$date":1.5},"usageCount":{"$int":"0"}})");
}

// Users change captions, flags and tables of one document; the next one starts with the defaults.
TEST(RecordModel, DefaultsAreMadeAfresh)
{
    defaultLabelDictionary()->setValue(u"note", u"changed"_qs);
    EXPECT_EQ(defaultLabelDictionary()->value(u"note").stringValue(), u"Note"_qs);
    newArrayForExport()->values.clear();
    EXPECT_EQ(newArrayForExport()->count(), 17);
}

} // namespace
