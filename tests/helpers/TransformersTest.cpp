#include "archive/KeyedArchive.h"
#include "helpers/FileBookmark.h"
#include "helpers/VLColorUtilOSX.h"
#include "helpers/transformers/AppearanceTransformers.h"
#include "helpers/transformers/BookmarkTransformers.h"
#include "helpers/transformers/ComparingTransformers.h"
#include "helpers/transformers/HelperTransformers.h"
#include "helpers/transformers/NumberTransformers.h"
#include "helpers/transformers/TextTransformers.h"
#include "platform/Services.h"
#include "support/Describe.h"
#include "support/Printers.h"
#include "values/Array.h"

#include <gtest/gtest.h>

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

constexpr auto Number = ValueClass::Number;
constexpr auto String = ValueClass::String;

// What a class declares and what it makes of its inputs, on the way back as well.
void expectTransformer(const ValueTransformer &transformer, ValueClass output, const std::vector<Case> &there,
                       const std::vector<Case> &back = {})
{
    SCOPED_TRACE(typeid(transformer).name());
    EXPECT_EQ(transformer.transformedValueClass(), output);
    EXPECT_EQ(transformer.allowsReverseTransformation(), !back.empty());
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

    expectTransformer(VLIntToBool(), Number, {{null, false}, {i(0), false}, {i(-1), true}},
                      {{null, i(0)}, {false, i(0)}, {i(9), i(1)}});
    expectTransformer(VLNegateIntToBool(), Number, {{null, true}, {i(0), true}, {i(2), false}},
                      {{null, i(1)}, {true, i(0)}, {false, i(1)}});
    for (const Case &c : {Case{null, i(0)}, {arrayOf({x}), i(0)}, {arrayOf({x, x}), i(1)}})
        EXPECT_EQ(VLOneIfOneInArray().transformedValue(c.input), c.output);
    EXPECT_EQ(describe(VLOneIfOneInArray().reverseTransformedValue(i(1))), "[]");
    expectTransformer(VL1IfNot0(), Number, {{null, i(0)}, {i(0), i(0)}, {i(-5), i(1)}, {beyond32Bits, i(0)}});
    expectTransformer(VLNumberBoolToNumberNum(), Number, {{null, i(0)}, {true, i(1)}},
                      {{null, false}, {beyond32Bits, true}});
    expectTransformer(VL1IfEqualToRef(3), Number,
                      {{null, null}, {i(3), i(1)}, {i(4), i(0)}, {i(65539), i(1)}});
    expectTransformer(VLValueIsEqualToRef(3), Number, {{null, null}, {i(65539), i(1)}, {i(0), i(0)}},
                      {{true, i(3)}, {false, null}, {null, null}});
    expectTransformer(VLValueIs0(), Number, {{i(0), i(1)}}, {{true, i(0)}});
    expectTransformer(VLValueIs9(), Number, {{i(9), i(1)}}, {{true, i(9)}});
    expectTransformer(VLValueIsGreaterOfRef(3), Number,
                      {{null, null}, {i(4), i(1)}, {i(3), i(0)}, {i(32768), i(0)}});
    expectTransformer(VLValueIsSmallerOfRef(3), Number,
                      {{null, null}, {i(2), i(1)}, {i(3), i(0)}, {i(32768), i(1)}});
    expectTransformer(VLValueNotEqualToRef(0), Number,
                      {{null, null}, {i(0), i(0)}, {i(1), i(1)}, {i(65536), i(0)}});
    expectTransformer(VLReturnInitStr(u"x"_qs), String, {{null, x}, {i(4), x}});
    expectTransformer(VLValueMultipliedBy(Value(0.1)), Number, {{null, null}, {i(3), Value(3.0F * 0.1F)}});
    expectTransformer(VLHeightForFontSize(), Number,
                      {{null, null}, {Value(12.0F), i(18)}, {i(0), i(2)}, {Value(-10.0), i(-12)}});
    expectTransformer(VLValueIsEqualToStr(u"x"_qs), String,
                      {{null, null}, {x, true}, {text(u"X"_qs), false}});
    expectTransformer(VLValueIsInSet(refs), Number, {{null, null}, {Value(3.0), true}, {tab, false}});
    expectTransformer(VLValueIsInArray(refs), Number, {{null, null}, {x, true}, {i(2), false}});
    expectTransformer(VLEmptyTrimmedString(), Number, {{null, true}, {blanks, true}, {tab, false}});
    expectTransformer(VLFilledTrimmedString(), Number, {{null, false}, {blanks, false}, {tab, true}});
}

TEST(Transformers, AreFoundUnderTheirNames)
{
    registerHelperTransformers();
    installApplicationTransformers();
    installDocumentTransformers();
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
    const QString path = QStringLiteral(VEXAREL_TEST_DATA "/cipher-vectors.txt");
    const Value bookmark = FileBookmark::bookmarkData(QUrl::fromLocalFile(path), 0, {});
    EXPECT_EQ(VLPathFromBookmark().transformedValue(bookmark), text(path));
    EXPECT_EQ(VLNameFromBookmark().transformedValue(bookmark), text(u"cipher-vectors.txt"_qs));
    for (const auto &[input, output] : {Case{QByteArray("none"), {}}, {{}, text(u""_qs)}}) {
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
    const std::tuple<const char *, Value, Value> cases[] = {
        {"short",
         styledTextStream("\x06"
                          "Caf\xC3\xA9!"),
         text(u"Caf\u00E9!"_qs)},
        {"long", styledTextStream(QByteArray("\x81\x2C\x01", 3) + longText),
         text(QString::fromLatin1(longText))},
        {"cut off", styledTextStream("\x7Fshort"), {}},
        {"cut off in its count", styledTextStream("\x82").chopped(2), {}},
        {"without a text", styledTextStream("").first(40), {}},
        {"keyed", archivedData(text(u"keyed"_qs)), text(u"keyed"_qs)},
        {"something else", archivedData(i(3)), {}},
    };
    for (const auto &[what, data, result] : cases)
        EXPECT_EQ(transformer.transformedValue(data), result) << what;
}

} // namespace
