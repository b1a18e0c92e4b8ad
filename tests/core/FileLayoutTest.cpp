#include "core/FileLayout.h"

#include <gtest/gtest.h>

#include <set>

namespace
{

constexpr quint64 AboveThirtyTwoBits = quint64(1) << 32;

struct Reading
{
    std::optional<FileLayout> layout;
    DecryptPath path;
    std::set<quint64> versions;
};

// The releases that were, as they are to be read. Everything else follows one of the three rules below.
const Reading releases[] = {
    {FileLayout::A, DecryptPath::Release1000, {1000}},
    {FileLayout::B, DecryptPath::Release1100, {1100}},
    {FileLayout::B, DecryptPath::PerField, {2000, 2010, 20100, 20200, 20300, 20301, 20302, 20400, 30000}},
    {FileLayout::C, DecryptPath::FlagResetting, {30100, 30200}},
    {FileLayout::D, DecryptPath::FlagResetting, {30300, 30301}},
};

TEST(FileLayout, ReadsEveryReleaseAsItWasWritten)
{
    for (const Reading &release : releases) {
        for (const quint64 version : release.versions) {
            SCOPED_TRACE(version);
            EXPECT_EQ(fileLayoutOfVersion(version), release.layout);
            EXPECT_EQ(decryptPathOfVersion(version), release.path);
        }
    }
}

// Numbers beside the releases are no releases, whatever their 32 low bits say.
TEST(FileLayout, NeighboursOfReleasesHaveNoReadingOfTheirOwn)
{
    std::set<quint64> known;
    for (const Reading &release : releases)
        known.insert(release.versions.begin(), release.versions.end());
    std::set<quint64> neighbours{0, 1, 20303, 30302, 30599};
    for (const quint64 version : known)
        neighbours.insert({version - 1, version + 1});
    for (const quint64 version : neighbours) {
        if (known.contains(version))
            continue;
        SCOPED_TRACE(version);
        EXPECT_EQ(fileLayoutOfVersion(version), FileLayout::D);
        EXPECT_EQ(decryptPathOfVersion(version),
                  version < 30100 ? DecryptPath::NoEngine : DecryptPath::Current);
    }
    for (const quint64 version : known)
        EXPECT_EQ(fileLayoutOfVersion(AboveThirtyTwoBits + version), std::nullopt) << version;
}

TEST(FileLayout, RefusesWhatIsNewer)
{
    EXPECT_EQ(fileLayoutOfVersion(30600), FileLayout::D);
    EXPECT_EQ(decryptPathOfVersion(30600), DecryptPath::Current);
    for (const quint64 version :
         {quint64(30601), AboveThirtyTwoBits, AboveThirtyTwoBits + 30600, quint64(-5)})
        EXPECT_EQ(fileLayoutOfVersion(version), std::nullopt) << version;
}

} // namespace
