#include "core/MacRoman.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QProcess>

using namespace Foundation;

namespace
{

TEST(MacRoman, EveryByteIsTheCharacterThatOtherProgramsRead)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(char(byte));
    QProcess python;
    python.start(
        u"/usr/bin/python3"_qs,
        {u"-c"_qs,
         QStringLiteral(
             "import sys; sys.stdout.buffer.write(bytes(range(256)).decode('mac_roman').encode())")});
    ASSERT_TRUE(python.waitForFinished(-1));
    const QString expected = QString::fromUtf8(python.readAllStandardOutput());
    ASSERT_EQ(expected.size(), 256);
    EXPECT_EQ(textFromMacRoman(all), expected);
    EXPECT_EQ(macRomanBytes(expected), all);
}

TEST(MacRoman, WhatItLacksHasNoBytes)
{
    for (const QString &text : {u"ş"_qs, u"😀"_qs, u"aб"_qs, u"e\u0301"_qs})
        EXPECT_EQ(macRomanBytes(text), std::nullopt);
    EXPECT_EQ(macRomanBytes(QString()), QByteArray(""));
    EXPECT_FALSE(macRomanBytes(QString())->isNull());
}

} // namespace
