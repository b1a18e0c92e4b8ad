#include "archive/ArchivedColor.h"

#include "archive/KeyedArchive.h"
#include "support/Printers.h"
#include "support/PropertyListBuilder.h"
#include "values/Dictionary.h"
#include "values/OpaqueObject.h"

#include <gtest/gtest.h>

#include <QLocale>

using namespace Foundation;

namespace
{

const struct
{
    const char *rule;
    qint32 space;
    QByteArray field, text;
    std::optional<Color> color;
} colorCases[] = {
    {"calibrated", 1, "NSRGB", "0.25 0.5 0.75", Color{0.25, 0.5, 0.75, 1}},
    {"nothing counts behind a null character", 1, "NSRGB", "1 0 1" + QByteArray(600, '\0') + "x",
     Color{1, 0, 1, 1}},
    {"of the device, with exponents", 2, "NSRGB", "1e-1 2.5E-01 1", Color{0.1, 0.25, 1, 1}},
    {"white", 3, "NSWhite", "0.5 0.25", Color{0.5, 0.5, 0.5, 0.25}},
    {"white of the device", 4, "NSWhite", "1", Color{1, 1, 1, 1}},
    {"four inks", 5, "NSCMYK", "0 0.5 1 0.5", Color{0.5, 0.25, 0, 1}},
    {"four inks and an opacity, by their other name", 5, "NSCYMK", "0 0 0 0 0.5", Color{1, 1, 1, 0.5}},
    {"beyond the ends", 1, "NSRGB", "-3 1e9 0.5", Color{0, 1, 0.5, 1}},
    {"no number", 1, "NSRGB", "0.5 nan 0.5", std::nullopt},
    {"too few", 1, "NSRGB", "0.5 0.5", std::nullopt},
    {"too many", 3, "NSWhite", "0.5 1 1", std::nullopt},
    {"commas", 1, "NSRGB", "0,5 0,5 0,5", std::nullopt},
    {"a pattern", 10, "NSRGB", "0 0 0", std::nullopt},
};

KeyedArchiveBuilder::Uid placeColor(KeyedArchiveBuilder &archive, qint32 space, const QByteArray &field,
                                    KeyedArchiveBuilder::Number content)
{
    return archive.place(
        archive.instance({{"NSColorSpace", archive.list.integer(quint64(space), 4)}, {field, content}},
                         archive.describedClass("NSColor", {"NSObject"})));
}

std::optional<Color> colorIn(const QByteArray &bytes)
{
    const auto root = unarchivedRoot(bytes);
    EXPECT_EQ(canBeUnarchived(bytes), root.has_value());
    return root && root->color() ? std::optional(root->color()->color) : std::nullopt;
}

TEST(ArchivedColor, IsReadInEverySpace)
{
    const QLocale former;
    QLocale::setDefault(QLocale::German);
    for (const auto &c : colorCases) {
        SCOPED_TRACE(c.rule);
        KeyedArchiveBuilder archive;
        const auto uid = placeColor(archive, c.space, c.field, archive.list.data(c.text));
        EXPECT_EQ(colorIn(archive.bytes(uid)), c.color);
        // A named one carries the colour that it stands for.
        const auto named = placeColor(archive, 6, "NSColor", archive.referenceTo(uid));
        EXPECT_EQ(colorIn(archive.bytes(named)), c.color);
    }
    QLocale::setDefault(former);
    KeyedArchiveBuilder itself;
    placeColor(itself, 6, "NSColor", itself.referenceTo(itself.nextUid() + 1));
    EXPECT_EQ(unarchivedRoot(itself.bytes(itself.nextUid() - 1)), std::nullopt) << "named after itself";
}

TEST(ArchivedColor, ComesBackBitByBit)
{
    const Color odd{0.1, 1.0 / 3, 1e-300, 0.7};
    const auto document = Dictionary::create();
    document->setValue(u"color", Ref<OpaqueObject>(new ColorObject(odd)));
    document->setValue(u"text", QStringLiteral("beside it"));
    const auto back = unarchivedRoot(archivedData(Value(document)));
    ASSERT_TRUE(back && back->dictionary());
    ASSERT_TRUE(back->dictionary()->value(u"color").color());
    EXPECT_EQ(back->dictionary()->value(u"color").color()->color, odd);
    EXPECT_EQ(back->dictionary()->value(u"text").stringValue(), u"beside it");
}

} // namespace
