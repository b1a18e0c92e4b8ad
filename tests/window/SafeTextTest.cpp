#include "window/controls/SafeText.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

TEST(SafeText, ReplacesOnlyWhatReordersOrHides)
{
    const std::tuple<const char *, QString, QString> cases[] = {
        {"an override", u"a\u202egnp.exe"_qs, u"a\ufffdgnp.exe"_qs},
        {"isolates and marks", u"\u2066x\u2069\u200f\u061c"_qs, u"\ufffdx\ufffd\ufffd\ufffd"_qs},
        {"control characters", u"a\r\u0007\u0085b"_qs, u"a\ufffd\ufffd\ufffdb"_qs},
        {"line breaks stay", u"a\n\nb"_qs, u"a\n\nb"_qs},
        {"letters of every script stay", u"Zoë שלום 😀"_qs, u"Zoë שלום 😀"_qs},
    };
    for (const auto &[rule, text, shown] : cases)
        EXPECT_EQ(withoutReorderingCharacters(text), shown) << rule;
}
