#include "helpers/VLNetValidator.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <random>

namespace
{

using Validator = bool (*)(const QString &);
constexpr Validator Email = VLNetValidator::isValidEmail;
constexpr Validator Emails = VLNetValidator::isValidEmailAlsoMultiple;
constexpr Validator Domain = VLNetValidator::isValidDomain;
constexpr Validator Numeric = VLNetValidator::isNumericDomain;

} // namespace

// What the patterns do not say; the texts themselves are compared with them below.
TEST(NetValidator, TrimsBlanksAndTakesSeveralAddresses)
{
    const std::tuple<const char *, Validator, QString, bool> cases[] = {
        {"blanks around it", Email, u"  a@b.co "_qs, true},
        {"null", Email, QString(), false},
        {"several", Emails, u"a@b.co, c@d.org "_qs, true},
        {"a piece of blanks", Emails, u"a@b.co, "_qs, false},
        {"one bad piece", Emails, u"a@b.co,c"_qs, false},
        {"nothing at all", Emails, u""_qs, true},
        {"four numbers", Numeric, u" 127.10.00.999 "_qs, true},
        {"a digit of another script", Numeric, u"12.12.12.1\u0661"_qs, false},
    };
    for (const auto &[rule, isValid, text, valid] : cases)
        EXPECT_EQ(isValid(text), valid) << rule;
}

TEST(NetValidator, EqualsThePublishedPatterns)
{
    const struct
    {
        Validator isValid;
        QStringView pattern;
        QString pieces;
    } cases[] = {
        {Email, VLNetValidator::EmailPattern, u"a Z9 . - @ @ .co _ \n"_qs},
        {Domain, VLNetValidator::DomainPattern, u"a bC 7 - . .org _ \n"_qs},
        {Numeric, VLNetValidator::NumericDomainPattern, u"1 29 300 . .45 .45 .45 a"_qs},
    };
    std::mt19937 random(30602);
    for (const auto &c : cases) {
        const QRegularExpression expression(QRegularExpression::anchoredPattern(c.pattern));
        const QStringList pieces = c.pieces.split(u' ');
        int matches = 0;
        for (int round = 0; round < 20000; ++round) {
            QString text;
            for (auto length = random() % 9; length > 0; --length)
                text += pieces.at(qsizetype(random() % std::size_t(pieces.size())));
            const bool expected = expression.match(text).hasMatch();
            matches += expected;
            ASSERT_EQ(c.isValid(text), expected) << qPrintable(text);
        }
        EXPECT_GT(matches, 100) << "too few texts that match prove little";
    }
}

// An engine that gives up answers false, so the valid texts show that these were judged to their end.
TEST(NetValidator, JudgesHostileLengths)
{
    constexpr qsizetype Length = 100000;
    const std::tuple<const char *, Validator, QString, QString, QString> cases[] = {
        {"tops in a row", Email, u"a@"_qs + u"b.cccccc"_qs.repeated(Length), u".co"_qs, u"!"_qs},
        {"hyphens in a row", Domain, u"a"_qs + QString(Length, u'-'), u"a.org"_qs, u".org"_qs},
        {"one number", Numeric, QString(Length, u'2'), u".10.10.10"_qs, u".10.10"_qs},
    };
    for (const auto &[rule, isValid, body, validEnd, invalidEnd] : cases) {
        SCOPED_TRACE(rule);
        EXPECT_TRUE(isValid(body + validEnd));
        EXPECT_FALSE(isValid(body + invalidEnd));
    }
}
