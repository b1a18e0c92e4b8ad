#include "core/RecordModel.h"

#include "DocumentJson.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

using Foundation::Array;
using Foundation::Value;

// "Title=key path" of each entry of a field table.
QString fieldsOf(const Array &table)
{
    QStringList fields;
    for (const Value &entry : table.values)
        fields << entry.dictionary()->value(u"publicKey").stringValue() + QLatin1Char('=') +
                      entry.dictionary()->value(u"innerKey").stringValue();
    return fields.join(u", "_qs);
}

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

// Opaque is the whole number 1 even beside real components: existing files hold it so.
TEST(RecordModel, ANewCategoryIsGreyWithWhiteText)
{
    EXPECT_EQ(jsonOfEntries(*newCategoryRecord(u"Work"_qs, 4)).toStdString(),
              R"({"cat_category":"Work","cat_backColor":{"$dict":{"r":{"$real":0.75},"g":{"$real":0.75},)"
              R"("b":{"$real":0.75},"a":{"$int":"1"}}},"cat_textColor":{"$dict":{"r":{"$int":"1"},)"
              R"("g":{"$int":"1"},"b":{"$int":"1"},"a":{"$int":"1"}}},"cat_howManyUsingThis":{"$int":"0"},)"
              R"("cat_uniqueID":{"$int":"4"},"records":[]})");
}

// "Mobile work" and "Note" lack the colon of the others and always have.
TEST(RecordModel, DefaultCaptionsAndFlags)
{
    EXPECT_EQ(
        jsonOfEntries(*defaultLabelDictionary()).toStdString(),
        R"({"category":"Category:","firstName":"First name:","lastName":"Last name:",)"
        R"("company":"Company:","phoneWork":"Phone work:","faxWork":"Fax work:","emailWork":"Email work:",)"
        R"("addressWork":"Address work:","webWork":"Web work:","phonePersonal":"Phone personal:",)"
        R"("faxPersonal":"Fax personal:","mobile":"Mobile personal:","pager":"Mobile work",)"
        R"("emailPersonal":"Email personal:","webPersonal":"Web personal:",)"
        R"("addressPersonal":"Address personal:","note":"Note","open01":false,"open02":false,)"
        R"("open03":false,"open04":false,"open05":false,"open06":false,"open07":true,"open08":true,)"
        R"("open09":false,"open10":false,"open11":false,"open12":false,"open13":true,"open14":true,)"
        R"("open15":false})");
}

TEST(RecordModel, FieldTablesHaveTheOrderOfExports)
{
    const QString fields = QStringLiteral(
        ", First name=firstName, Last name=lastName, Company=company, Phone work=phoneWork, Fax "
        "work=faxWork, "
        "Address work=addressWork, Email work=emailWork, Web work=webWork, Phone personal=phonePersonal, "
        "Fax personal=faxPersonal, Mobile personal=mobile, Mobile work=pager, Email personal=emailPersonal, "
        "Web personal=webPersonal, Address personal=addressPersonal, Note=note");
    EXPECT_EQ(fieldsOf(*newArrayForExport()), u"Category=categoryPtr.cat_category"_qs + fields);
    EXPECT_EQ(fieldsOf(*newArrayForImport()), u"Category=categoryNAME"_qs + fields);
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
