#include "foundation/Array.h"
#include "foundation/KeyedArchive.h"
#include "foundation/Services.h"
#include "helpers/AppearanceTransformers.h"
#include "helpers/BookmarkTransformers.h"
#include "helpers/ComparingTransformers.h"
#include "helpers/FileBookmark.h"
#include "helpers/HelperTransformers.h"
#include "helpers/NumberTransformers.h"
#include "helpers/TextTransformers.h"
#include "helpers/VLColorUtilOSX.h"
#include "support/Describe.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Foundation;
using Registry = ValueTransformerRegistry;
using ValueClass = ValueTransformer::ValueClass;

namespace
{

Value i(qint32 number)
{
    return number;
}

Value text(const QString &string)
{
    return string;
}

Value arrayOf(std::vector<Value> values)
{
    return Array::create(std::move(values));
}

struct Case
{
    Value input, output;
};

// Every class with what it declares and what it makes of its inputs; `back` where there is a way back.
TEST(Transformers, DoWhatTheirTableSays)
{
    const Value null;
    const auto refs = Array::create({i(3), text(u"x"_qs), Value(2.5)});
    const struct
    {
        const char *name;
        std::shared_ptr<ValueTransformer> transformer;
        ValueClass output;
        bool allowsReverse;
        std::vector<Case> there;
        std::vector<Case> back;
    } table[] = {
        {"VLIntToBool",
         std::make_shared<VLIntToBool>(),
         ValueClass::Number,
         true,
         {{null, false}, {i(0), false}, {i(-1), true}, {text(u"7"_qs), true}},
         {{null, i(0)}, {true, i(1)}, {false, i(0)}, {i(9), i(1)}}},
        {"VLNegateIntToBool",
         std::make_shared<VLNegateIntToBool>(),
         ValueClass::Number,
         true,
         {{null, true}, {i(0), true}, {i(2), false}},
         {{null, i(1)}, {true, i(0)}, {false, i(1)}}},
        {"VLOneIfOneInArray",
         std::make_shared<VLOneIfOneInArray>(),
         ValueClass::Number,
         true,
         {{null, i(0)}, {arrayOf({}), i(0)}, {arrayOf({i(1)}), i(0)}, {arrayOf({i(1), i(2)}), i(1)}},
         {}},
        {"VL1IfNot0",
         std::make_shared<VL1IfNot0>(),
         ValueClass::Number,
         false,
         {{null, i(0)}, {i(0), i(0)}, {i(-5), i(1)}, {Value(qint64(1) << 32), i(0)}},
         {{i(1), null}}},
        {"VLNumberBoolToNumberNum",
         std::make_shared<VLNumberBoolToNumberNum>(),
         ValueClass::Number,
         true,
         {{null, i(0)}, {true, i(1)}, {false, i(0)}},
         {{null, false}, {Value(qint64(1) << 32), true}}},
        {"VL1IfEqualToRef",
         std::make_shared<VL1IfEqualToRef>(3),
         ValueClass::Number,
         false,
         {{null, null}, {i(3), i(1)}, {i(4), i(0)}, {i(65539), i(1)}},
         {{true, null}}},
        {"VLValueIsEqualToRef",
         std::make_shared<VLValueIsEqualToRef>(3),
         ValueClass::Number,
         true,
         {{null, null}, {i(65539), i(1)}, {i(0), i(0)}},
         {{true, i(3)}, {false, null}, {null, null}}},
        {"VLValueIs0",
         std::make_shared<VLValueIs0>(),
         ValueClass::Number,
         true,
         {{i(0), i(1)}},
         {{true, i(0)}}},
        {"VLValueIs9",
         std::make_shared<VLValueIs9>(),
         ValueClass::Number,
         true,
         {{i(9), i(1)}},
         {{true, i(9)}}},
        {"VLValueIsGreaterOfRef",
         std::make_shared<VLValueIsGreaterOfRef>(3),
         ValueClass::Number,
         false,
         {{null, null}, {i(4), i(1)}, {i(3), i(0)}, {i(32768), i(0)}},
         {}},
        {"VLValueIsSmallerOfRef",
         std::make_shared<VLValueIsSmallerOfRef>(3),
         ValueClass::Number,
         false,
         {{null, null}, {i(2), i(1)}, {i(3), i(0)}, {i(32768), i(1)}},
         {}},
        {"VLValueNotEqualToRef",
         std::make_shared<VLValueNotEqualToRef>(0),
         ValueClass::Number,
         false,
         {{null, null}, {i(0), i(0)}, {i(1), i(1)}, {i(65536), i(0)}},
         {}},
        {"VLReturnInitStr",
         std::make_shared<VLReturnInitStr>(u"x"_qs),
         ValueClass::String,
         false,
         {{null, text(u"x"_qs)}, {i(4), text(u"x"_qs)}},
         {}},
        {"VLValueMultipliedBy",
         std::make_shared<VLValueMultipliedBy>(Value(0.1)),
         ValueClass::Number,
         false,
         {{null, null}, {i(3), Value(3.0F * 0.1F)}},
         {}},
        {"VLHeightForFontSize",
         std::make_shared<VLHeightForFontSize>(),
         ValueClass::Number,
         false,
         {{null, null}, {Value(12.0F), i(18)}, {i(0), i(2)}, {Value(-10.0), i(-12)}},
         {}},
        {"VLValueIsEqualToStr",
         std::make_shared<VLValueIsEqualToStr>(u"x"_qs),
         ValueClass::String,
         false,
         {{null, null}, {text(u"x"_qs), true}, {text(u"X"_qs), false}, {i(1), false}},
         {}},
        {"VLValueIsInSet",
         std::make_shared<VLValueIsInSet>(refs),
         ValueClass::Number,
         false,
         {{null, null}, {Value(3.0), true}, {Value(qint64(3)), true}, {text(u"y"_qs), false}},
         {}},
        {"VLValueIsInArray",
         std::make_shared<VLValueIsInArray>(refs),
         ValueClass::Number,
         false,
         {{null, null}, {text(u"x"_qs), true}, {i(2), false}},
         {}},
        {"VLEmptyTrimmedString",
         std::make_shared<VLEmptyTrimmedString>(),
         ValueClass::Number,
         false,
         {{null, true}, {text(u"  "_qs), true}, {text(u"\t"_qs), false}, {text(u" a "_qs), false}},
         {}},
        {"VLFilledTrimmedString",
         std::make_shared<VLFilledTrimmedString>(),
         ValueClass::Number,
         false,
         {{null, false}, {text(u"  "_qs), false}, {text(u"\t"_qs), true}},
         {}},
    };
    for (const auto &row : table) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.transformer->transformedValueClass(), row.output);
        EXPECT_EQ(row.transformer->allowsReverseTransformation(), row.allowsReverse);
        for (const Case &c : row.there)
            EXPECT_EQ(row.transformer->transformedValue(c.input), c.output) << "of " << describe(c.input);
        for (const Case &c : row.back)
            EXPECT_EQ(row.transformer->reverseTransformedValue(c.input), c.output)
                << "back from " << describe(c.input);
    }
    EXPECT_EQ(describe(VLOneIfOneInArray().reverseTransformedValue(i(1))), describe(arrayOf({})));
}

TEST(Transformers, AreFoundUnderTheirNames)
{
    registerHelperTransformers();
    installApplicationTransformers();
    installDocumentTransformers();
    for (const char *name : {"VLDateTagElaborated",
                             "VLImgData",
                             "VLIntToBool",
                             "VLNegateIntToBool",
                             "VLOneIfOneInArray",
                             "VLPathFromBookmark",
                             "VLNameFromBookmark",
                             "VL1IfNot0",
                             "VLNumberBoolToNumberNum",
                             "VLValueIs0",
                             "VLValueIs1",
                             "VLValueIs2",
                             "VLValueIs3",
                             "VLValueIs4",
                             "VLValueIs5",
                             "VLValueIs6",
                             "VLValueIs7",
                             "VLValueIs8",
                             "VLValueIs9",
                             "VLHeightForFontSize",
                             "VLUnarchivieFromDataToText",
                             "VLEmptyTrimmedString",
                             "VLFilledTrimmedString",
                             "VLDictToNSColor",
                             "valueNot0",
                             "valueIsOpSelDoc",
                             "valueIs3",
                             "heightAmplifier",
                             "dictToNSColor",
                             "valueIs1",
                             "ret1ifnot0"})
        EXPECT_TRUE(Registry::shared().valueTransformerForName(QString::fromLatin1(name))) << name;
    const auto transformed = [](const char *name, const Value &value) {
        return Registry::shared().valueTransformerForName(QString::fromLatin1(name))->transformedValue(value);
    };
    EXPECT_EQ(transformed("valueIs3", i(3)), i(1));
    EXPECT_EQ(transformed("valueIs1", i(1)), i(1));
    EXPECT_EQ(transformed("valueNot0", i(0)), i(0));
    EXPECT_EQ(transformed("valueIsOpSelDoc", text(u"Open Selected Document"_qs)), Value(true));
    EXPECT_EQ(transformed("VLValueIs7", i(7)), i(1));
    Registry::shared().setValueTransformer(u"valueIs1"_qs, std::make_shared<VLValueIs2>());
    EXPECT_EQ(transformed("valueIs1", i(1)), i(0));
    installDocumentTransformers(); // Every new document puts its own back.
    EXPECT_EQ(transformed("valueIs1", i(1)), i(1));
}

TEST(Transformers, BookmarksGivePathAndName)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Fri\u00E9nds 100%.vexcards"_qs);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const Value bookmark = FileBookmark::bookmarkData(QUrl::fromLocalFile(path), 0, {});
    EXPECT_EQ(VLPathFromBookmark().transformedValue(bookmark), text(path));
    EXPECT_EQ(VLNameFromBookmark().transformedValue(bookmark), text(u"Fri\u00E9nds 100%.vexcards"_qs));
    ASSERT_TRUE(file.remove());
    for (const auto &[input, output] : {Case{bookmark, {}}, {QByteArray("none"), {}}, {{}, text(u""_qs)}}) {
        EXPECT_EQ(VLPathFromBookmark().transformedValue(input), output);
        EXPECT_EQ(VLNameFromBookmark().transformedValue(input), output);
    }
}

TEST(Transformers, ColoursGoThereAndBackAndPicturesNeedADesktop)
{
    const VLDictToNSColor colours;
    const auto dict = VLColorUtilOSX::dictFromNSColor({0.75, 0.1, 0, 0.5});
    const Value color = colours.transformedValue(dict);
    EXPECT_EQ(color, Value(Ref<OpaqueObject>(new ColorObject(VLColorUtilOSX::NSColorFromDict(dict)))));
    EXPECT_EQ(colours.reverseTransformedValue(color).dictionary()->value(u"r"), Value(0.75));
    EXPECT_TRUE(colours.reverseTransformedValue(i(1)).isNull());

    const VLImgData pictures;
    const Value empty = pictures.transformedValue({});
    EXPECT_EQ(empty.type(), Value::Type::Opaque);
    EXPECT_TRUE(pictures.reverseTransformedValue(empty).isNull());
    EXPECT_TRUE(pictures.transformedValue(QByteArray("no picture")).isNull());
    EXPECT_TRUE(pictures.reverseTransformedValue(color).isNull());
    EXPECT_FALSE(empty == color);
}

// A styled text as the older archives have it: the class chain, the text's class, and its bytes.
QByteArray styledTextStream(const QByteArray &countedText)
{
    return QByteArray::fromHex("040b73747265616d747970656481e803840140848484124e5341747472696275746564537472"
                               "696e67008484084e534f626a656374008592848484084e53537472696e67019484012b") +
           countedText + QByteArray::fromHex("8684");
}

TEST(Transformers, StyledTextsGiveTheirCharacters)
{
    const VLUnarchivieFromDataToText transformer;
    const QByteArray longText(300, 'l');
    const struct
    {
        const char *what;
        Value data, result;
    } cases[] = {
        {"short",
         styledTextStream("\x06"
                          "Caf\xC3\xA9!"),
         text(u"Caf\u00E9!"_qs)},
        {"empty", styledTextStream(QByteArray(1, '\0')), text(u""_qs)},
        {"long", styledTextStream(QByteArray("\x81\x2C\x01", 3) + longText),
         text(QString::fromLatin1(longText))},
        {"cut off",
         styledTextStream("\x7F"
                          "short"),
         {}},
        {"cut off in its count", styledTextStream("\x82").chopped(2), {}},
        {"without a text", styledTextStream("").first(40), {}},
        {"keyed, a plain text", archivedData(text(u"keyed"_qs)), text(u"keyed"_qs)},
        {"keyed, a styled text",
         QByteArray(
             "<plist><dict><key>$objects</key><array><string>$null</string><dict><key>$class</key><dict>"
             "<key>CF$UID</key><integer>3</integer></dict><key>NSString</key><dict><key>CF$UID</key>"
             "<integer>2</integer></dict></dict><string>styled</string><dict><key>$classname</key>"
             "<string>NSAttributedString</string></dict></array><key>$top</key><dict><key>root</key>"
             "<dict><key>CF$UID</key><integer>1</integer></dict></dict></dict></plist>"),
         text(u"styled"_qs)},
        {"something else", archivedData(i(3)), {}},
        {"nothing", {}, {}},
    };
    for (const auto &c : cases)
        EXPECT_EQ(transformer.transformedValue(c.data), c.result) << c.what;
}

} // namespace
