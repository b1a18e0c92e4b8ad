#include "helpers/VLStringUtils.h"

#include "support/Printers.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <random>

namespace
{

using Utils = VLStringUtils;

const Foundation::TextAttributes Plain;

// The fitting rule word by word, one unit after the other.
QString fittedUnitByUnit(const QString &text, qint32 limit)
{
    const auto width = [](const QString &line) {
        return Foundation::Services::shared().textMeasurer().widthOfText(line, Plain);
    };
    QString copy = text;
    if (width(copy) <= limit)
        return copy;
    while (width(copy + u".."_qs) > limit && copy.size() >= 2)
        copy.chop(1);
    return copy + u".."_qs;
}

} // namespace

TEST(StringCleaning, RemovesJustWhatItsNameSays)
{
    const struct
    {
        const char *rule;
        QString (*clean)(const QString &);
        QString text, cleaned;
    } cases[] = {
        {"blanks of any kind and tabs lead", Utils::removeInitialSpaces, u" \t\u00A0a "_qs, u"a "_qs},
        {"a line end is no blank", Utils::removeInitialSpaces, u" \n a"_qs, u"\n a"_qs},
        {"nothing remains: null", Utils::removeInitialSpaces, u"  \t"_qs, QString()},
        {"only the plain blank is lateral", Utils::trimLateralSpace, u"  \t a \n "_qs, u"\t a \n"_qs},
        {"blanks alone: empty", Utils::trimLateralSpace, u"   "_qs, u""_qs},
        {"all quotes at the ends", Utils::trimLateralQuote, u"\"\"a\"b\""_qs, u"a\"b"_qs},
        {"both orders of a line end", Utils::stripNewLines, u"a\r\nb\n\rc\rd\ne"_qs, u"abcde"_qs},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        EXPECT_EQ(c.clean(c.text), c.cleaned);
        EXPECT_EQ(c.clean(c.text).isNull(), c.cleaned.isNull());
    }
}

TEST(StringCleaning, KeepsOrRemovesWholeCodePoints)
{
    // Both faces share their first surrogate.
    const QString faces = u"a\U0001F600b\U0001F601a"_qs;
    EXPECT_EQ(Utils::trimString(faces, u"\U0001F600a"_qs), u"a\U0001F600a"_qs);
    EXPECT_EQ(Utils::trimString(u"+39 (02) 1-2"_qs, u"0123456789"_qs), u"390212"_qs);
    EXPECT_EQ(Utils::stringByRemovingCharacters(faces, [](char32_t c) { return c > 0xFFFF; }), u"aba"_qs);
    EXPECT_EQ(Utils::stringByRemovingCharacters(faces.chopped(2), [](char32_t c) { return c == U'b'; }),
              u"a\U0001F600\xD83D"_qs)
        << "half of a pair stands for itself";
}

TEST(StringCleaning, PadsWithZerosAndTellsWhatRemains)
{
    EXPECT_EQ(Utils::addLeading0(u"123"_qs, 2), u"123"_qs);
    EXPECT_EQ(Utils::addLeading0(u"123"_qs, 5), u"00123"_qs);
    EXPECT_FALSE(Utils::spaceTrimmedNotEmpy(u"   "_qs));
    EXPECT_TRUE(Utils::spaceTrimmedNotEmpy(u" \t "_qs));
}

TEST(FittingTrim, EqualsTheWalkUnitByUnit)
{
    // Ligatures take width back, and half a pair is drawn as a wide box.
    const ScriptedTextMeasurer measurer([](const QString &text, const auto &) {
        return double(text.size()) * 2 - double(text.count(u"fi"_qs)) * 3 + (text.isValidUtf16() ? 0 : 6);
    });
    EXPECT_EQ(Utils::trimStringToFit(u"abcdef"_qs, 0, Plain), u"a.."_qs);
    EXPECT_EQ(Utils::trimStringToFit(u"ab\U0001F600w"_qs, 9, Plain), u"ab.."_qs);
    std::mt19937 random(20240229);
    const QString pieces[] = {u"f"_qs, u"i"_qs, u"w"_qs, u"\U0001F600"_qs};
    for (int round = 0; round < 300; ++round) {
        QString text;
        for (auto length = random() % 60; length > 0; --length)
            text += pieces[random() % std::size(pieces)];
        const qint32 limit = qint32(random() % 130) - 2;
        ASSERT_EQ(Utils::trimStringToFit(text, limit, Plain), fittedUnitByUnit(text, limit));
    }
}

TEST(FittingTrim, MeasuresInTheFontGiven)
{
    Foundation::TextAttributes large;
    large.fontSize = 20; // 12 points a unit with the built-in measurer
    EXPECT_EQ(Utils::trimStringToFit(u"abcdef"_qs, 73, large), u"abcdef"_qs);
    EXPECT_EQ(Utils::trimStringToFit(u"abcdef"_qs, 71, large), u"abc.."_qs);
}

TEST(FittingTrim, MeasuresALongTextAFewTimesOnly)
{
    const ScriptedTextMeasurer measurer(
        [](const QString &text, const auto &) { return double(text.size()); });
    const QString text(100000, u'w');
    EXPECT_EQ(Utils::trimStringToFit(text, 50002, Plain).size(), 50002);
    EXPECT_LT(measurer.measurements, 40);
}

TEST(Identifiers, CountUpWithinOneSecond)
{
    ManualClock clock(QDateTime(QDate(2024, 2, 9), QTime(3, 4, 5, 999)));
    EXPECT_EQ(Utils::uniqueTimeString(), u"20240209030405"_qs);
    for (const auto &identifier : {u"202402090304050"_qs, u"202402090304051"_qs, u"202402090304052"_qs})
        EXPECT_EQ(Utils::uniqueTimeSerialString(), identifier);
    clock.moment = clock.moment.addMSecs(1);
    EXPECT_EQ(Utils::uniqueTimeSerialString(), u"202402090304060"_qs);
    EXPECT_EQ(Utils::getNewSerialForTimeString(u"another"_qs), u"0"_qs);
    EXPECT_EQ(Utils::getNewSerialForTimeString(u"20240209030406"_qs), u"0"_qs) << "only calls in a row count";
}

TEST(Identifiers, EndInARandomNumberOrAreUuids)
{
    const QRegularExpression form(
        u"\\A[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\z"_qs);
    EXPECT_TRUE(form.match(Utils::uniqueUUIDString()).hasMatch());
    const ManualClock clock(QDateTime(QDate(824, 12, 31), QTime(23, 59, 59)));
    const QString identifier = Utils::uniqueTimeRandString();
    EXPECT_TRUE(identifier.startsWith(u"8241231235959"_qs)) << "the year takes the digits that it has";
    EXPECT_GE(identifier.size(), 13 + 5);
    EXPECT_LE(identifier.mid(13).toLongLong(), 32000000000000);
    EXPECT_NE(identifier, Utils::uniqueTimeRandString());
}
