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

enum class Way { There, ThereAndBack };
constexpr auto Number = ValueClass::Number;
constexpr auto String = ValueClass::String;

// What a class declares and what it makes of its inputs, on the way back as well.
void expectTransformer(const ValueTransformer &transformer, ValueClass output, Way way,
                       const std::vector<Case> &there, const std::vector<Case> &back = {})
{
    SCOPED_TRACE(typeid(transformer).name());
    EXPECT_EQ(transformer.transformedValueClass(), output);
    EXPECT_EQ(transformer.allowsReverseTransformation(), way == Way::ThereAndBack);
    for (const Case &c : there)
        EXPECT_EQ(transformer.transformedValue(c.input), c.output) << "of " << describe(c.input);
    for (const Case &c : back)
        EXPECT_EQ(transformer.reverseTransformedValue(c.input), c.output)
            << "back from " << describe(c.input);
}

TEST(Transformers, DoWhatTheirTableSays)
{
    const Value null;
    const Value x = u"x"_qs;
    const Value tab = u"\t"_qs;
    const Value blanks = u"  "_qs;
    const Value beyond32Bits = qint64(1) << 32;
    const auto refs = Array::create({i(3), x, Value(2.5)});
    constexpr auto There = Way::There;
    constexpr auto ThereAndBack = Way::ThereAndBack;

    expectTransformer(VLIntToBool(), Number, ThereAndBack,
                      {{null, false}, {i(0), false}, {i(-1), true}, {text(u"7"_qs), true}},
                      {{null, i(0)}, {true, i(1)}, {false, i(0)}, {i(9), i(1)}});
    expectTransformer(VLNegateIntToBool(), Number, ThereAndBack, {{null, true}, {i(0), true}, {i(2), false}},
                      {{null, i(1)}, {true, i(0)}, {false, i(1)}});
    expectTransformer(VLOneIfOneInArray(), Number, ThereAndBack,
                      {{null, i(0)}, {arrayOf({}), i(0)}, {arrayOf({x}), i(0)}, {arrayOf({x, x}), i(1)}});
    EXPECT_EQ(describe(VLOneIfOneInArray().reverseTransformedValue(i(1))), "[]");
    expectTransformer(VL1IfNot0(), Number, There,
                      {{null, i(0)}, {i(0), i(0)}, {i(-5), i(1)}, {beyond32Bits, i(0)}}, {{i(1), null}});
    expectTransformer(VLNumberBoolToNumberNum(), Number, ThereAndBack,
                      {{null, i(0)}, {true, i(1)}, {false, i(0)}}, {{null, false}, {beyond32Bits, true}});
    expectTransformer(VL1IfEqualToRef(3), Number, There,
                      {{null, null}, {i(3), i(1)}, {i(4), i(0)}, {i(65539), i(1)}}, {{true, null}});
    expectTransformer(VLValueIsEqualToRef(3), Number, ThereAndBack,
                      {{null, null}, {i(65539), i(1)}, {i(0), i(0)}},
                      {{true, i(3)}, {false, null}, {null, null}});
    expectTransformer(VLValueIs0(), Number, ThereAndBack, {{i(0), i(1)}}, {{true, i(0)}});
    expectTransformer(VLValueIs9(), Number, ThereAndBack, {{i(9), i(1)}}, {{true, i(9)}});
    expectTransformer(VLValueIsGreaterOfRef(3), Number, There,
                      {{null, null}, {i(4), i(1)}, {i(3), i(0)}, {i(32768), i(0)}});
    expectTransformer(VLValueIsSmallerOfRef(3), Number, There,
                      {{null, null}, {i(2), i(1)}, {i(3), i(0)}, {i(32768), i(1)}});
    expectTransformer(VLValueNotEqualToRef(0), Number, There,
                      {{null, null}, {i(0), i(0)}, {i(1), i(1)}, {i(65536), i(0)}});
    expectTransformer(VLReturnInitStr(u"x"_qs), String, There, {{null, x}, {i(4), x}});
    expectTransformer(VLValueMultipliedBy(Value(0.1)), Number, There,
                      {{null, null}, {i(3), Value(3.0F * 0.1F)}});
    expectTransformer(VLHeightForFontSize(), Number, There,
                      {{null, null}, {Value(12.0F), i(18)}, {i(0), i(2)}, {Value(-10.0), i(-12)}});
    expectTransformer(VLValueIsEqualToStr(u"x"_qs), String, There,
                      {{null, null}, {x, true}, {text(u"X"_qs), false}, {i(1), false}});
    expectTransformer(VLValueIsInSet(refs), Number, There,
                      {{null, null}, {Value(3.0), true}, {Value(qint64(3)), true}, {tab, false}});
    expectTransformer(VLValueIsInArray(refs), Number, There, {{null, null}, {x, true}, {i(2), false}});
    expectTransformer(VLEmptyTrimmedString(), Number, There,
                      {{null, true}, {blanks, true}, {tab, false}, {text(u" a "_qs), false}});
    expectTransformer(VLFilledTrimmedString(), Number, There, {{null, false}, {blanks, false}, {tab, true}});
}

TEST(Transformers, AreFoundUnderTheirNames)
{
    registerHelperTransformers();
    installApplicationTransformers();
    installDocumentTransformers();
    const QString names =
        u"VLDateTagElaborated VLImgData VLIntToBool VLNegateIntToBool VLOneIfOneInArray VLPathFromBookmark "
        u"VLNameFromBookmark VL1IfNot0 VLNumberBoolToNumberNum VLValueIs0 VLValueIs1 VLValueIs2 VLValueIs3 "
        u"VLValueIs4 VLValueIs5 VLValueIs6 VLValueIs7 VLValueIs8 VLValueIs9 VLHeightForFontSize "
        u"VLUnarchivieFromDataToText VLEmptyTrimmedString VLFilledTrimmedString VLDictToNSColor valueNot0 "
        u"valueIsOpSelDoc valueIs3 heightAmplifier dictToNSColor valueIs1 ret1ifnot0"_qs;
    for (const QString &name : names.split(u' '))
        EXPECT_TRUE(Registry::shared().valueTransformerForName(name)) << qPrintable(name);
    const auto transformed = [](const QString &name, const Value &value) {
        return Registry::shared().valueTransformerForName(name)->transformedValue(value);
    };
    EXPECT_EQ(transformed(u"valueIs3"_qs, i(3)), i(1));
    EXPECT_EQ(transformed(u"valueIs1"_qs, i(1)), i(1));
    EXPECT_EQ(transformed(u"valueNot0"_qs, i(0)), i(0));
    EXPECT_EQ(transformed(u"valueIsOpSelDoc"_qs, text(u"Open Selected Document"_qs)), Value(true));
    EXPECT_EQ(transformed(u"VLValueIs7"_qs, i(7)), i(1));
    EXPECT_EQ(transformed(u"VLDateTagElaborated"_qs, text(u"<YY"_qs)), text(u"<YY"_qs));
    Registry::shared().setValueTransformer(u"valueIs1"_qs, std::make_shared<VLValueIs2>());
    EXPECT_EQ(transformed(u"valueIs1"_qs, i(1)), i(0));
    installDocumentTransformers(); // Every new document puts its own back.
    EXPECT_EQ(transformed(u"valueIs1"_qs, i(1)), i(1));
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
        {"cut off", styledTextStream("\x7Fshort"), {}},
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
