#include "helpers/VLBookmark.h"

#include "helpers/PersistentFileId.h"
#include "support/Files.h"
#include "support/Printers.h"

#include <QTemporaryDir>

namespace
{

struct Bookmarks : testing::Test
{
    QTemporaryDir folder;
    QUrl document = make(u"old/cards.vexcards"_qs);
    QUrl file = make(u"old/photo \u00FC%"_qs);
    bool stale = true;

    QUrl at(const QString &name) const { return QUrl::fromLocalFile(folder.filePath(name)); }
    QUrl make(const QString &name) const
    {
        putFile(folder.filePath(name), {});
        return at(name);
    }
    void rename(const QString &from, const QString &to) const
    {
        ASSERT_TRUE(QDir(folder.path()).rename(from, to));
    }
};

} // namespace

TEST_F(Bookmarks, AreStaleWhenAnotherFileStandsAtThePath)
{
    const QByteArray data = VLBookmark::bookmarkForURL_RW(file);
    EXPECT_EQ(VLBookmark::urlForBookmark(data, &stale), file);
    EXPECT_FALSE(stale);
    rename(u"old/photo \u00FC%"_qs, u"backup"_qs); // keeps its inode from being given to the next
    make(u"old/photo \u00FC%"_qs);
    EXPECT_EQ(VLBookmark::urlForBookmark(data, &stale), file);
    EXPECT_TRUE(stale);
}

TEST_F(Bookmarks, FollowARenameInTheFolder)
{
    if (PersistentFileId::ofFile(file.toLocalFile())->birthInNanoseconds == 0)
        GTEST_SKIP() << "this file system keeps no moment of birth";
    const QByteArray data = VLBookmark::bookmarkForURL_RO(file);
    rename(u"old/photo \u00FC%"_qs, u"old/renamed"_qs);
    EXPECT_EQ(VLBookmark::urlForBookmark(data, &stale), at(u"old/renamed"_qs));
    EXPECT_TRUE(stale);
    rename(u"old/renamed"_qs, u"elsewhere"_qs);
    EXPECT_TRUE(VLBookmark::urlForBookmark(data, &stale).isEmpty());
    EXPECT_FALSE(stale);
}

TEST_F(Bookmarks, MoveWithTheirDocument)
{
    const QByteArray readOnly = VLBookmark::docBookmarkForURL_RO(file, document);
    const QByteArray readWrite = VLBookmark::docBookmarkForURL_RW(file, document);
    EXPECT_EQ(VLBookmark::urlForDocBookmark(readWrite, document, &stale), file);
    EXPECT_FALSE(stale);
    rename(u"old"_qs, u"new"_qs);
    const QUrl movedDocument = at(u"new/cards.vexcards"_qs);
    EXPECT_EQ(VLBookmark::urlForDocBookmark(readOnly, movedDocument, &stale), at(u"new/photo \u00FC%"_qs));
    EXPECT_TRUE(stale);
    EXPECT_TRUE(VLBookmark::urlForDocBookmark(readOnly, document, &stale).isEmpty());
    EXPECT_TRUE(VLBookmark::urlForBookmark(readOnly, &stale).isEmpty());
    EXPECT_TRUE(VLBookmark::urlForDocBookmark(readWrite, movedDocument, &stale).isEmpty());
}

TEST_F(Bookmarks, AreNotMadeOfWhatIsNoFile)
{
    const QUrl page(u"http://a.example/x"_qs);
    for (const QUrl &url : {at(u"missing"_qs), at(u"old\0"_qs), page, QUrl(), QUrl(file.toLocalFile())})
        EXPECT_TRUE(VLBookmark::bookmarkForURL_RW(url).isNull()) << qPrintable(url.toString());
    EXPECT_TRUE(VLBookmark::docBookmarkForURL_RO(file, page).isNull());
}

TEST_F(Bookmarks, ResolveToNothingWhenDamaged)
{
    const QByteArray data = VLBookmark::bookmarkForURL_RW(file);
    QByteArrayList damaged = {data + 'x', QByteArray(data).replace("/old/", QByteArrayLiteral("/\0ld/"))};
    for (qsizetype length = 0; length < data.size(); ++length)
        damaged.append(data.first(length));
    for (const qsizetype place : {0, 4, 33, 37}) { // magic, version, length of the path, its first "/"
        damaged.append(data);
        damaged.last()[place] = '\x7F';
    }
    for (const QByteArray &bytes : damaged) {
        stale = true;
        EXPECT_TRUE(VLBookmark::urlForBookmark(bytes, &stale).isEmpty()) << bytes.toHex().constData();
        EXPECT_FALSE(stale);
    }
}
