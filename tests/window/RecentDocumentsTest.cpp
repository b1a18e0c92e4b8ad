#include "window/desktop/RecentDocuments.h"

#include "window/WindowTest.h"

#include <QDir>

namespace
{

const QByteArray foreignList =
    "<?xml version='1.0' encoding='UTF-8'?>\n"
    "<xbel version='1.0' xmlns:bookmark='http://www.freedesktop.org/standards/desktop-bookmarks'\n"
    " xmlns:mime='http://www.freedesktop.org/standards/shared-mime-info'>\n"
    "<bookmark href='file:///home/user/letter.odt' added='2026-01-02T03:04:05Z'"
    " modified='2026-01-02T03:04:05Z' visited='2026-01-02T03:04:05Z'><info>"
    "<metadata owner='http://freedesktop.org'><mime:mime-type type='application/vnd.oasis'/>"
    "<bookmark:applications><bookmark:application name='writer' exec='&apos;writer %u&apos;'"
    " modified='2026-01-02T03:04:05Z' count='3'/></bookmark:applications></metadata></info></bookmark>"
    "</xbel>";

class RecentDocumentsTest : public WindowTest
{
protected:
    void SetUp() override { QFile::remove(list); }

    QString saveNew(const QString &name)
    {
        makeProtectedDocument();
        saveTo(name);
        return pathOf(name);
    }
    // What the menu offers, opened by its keys.
    QMenu *openMenu() const
    {
        press(Qt::Key_F, Qt::AltModifier);
        QTest::keyClick(window()->findChild<QMenu *>(u"fileMenu"_qs), Qt::Key_R);
        auto *menu = window()->findChild<QMenu *>(u"recentMenu"_qs);
        EXPECT_TRUE(eventually([menu] { return menu->isVisible(); }));
        return menu;
    }
    static QStringList titles(const QMenu *menu)
    {
        QStringList titles;
        for (const QAction *action : menu->actions())
            titles.append(titleWithoutMnemonic(action->text()));
        return titles;
    }
    // A folder as the menu writes it.
    static QString shown(QString path)
    {
        const bool isBelowHome = path.startsWith(QDir::homePath() + u'/');
        return isBelowHome ? path.replace(0, QDir::homePath().size(), u'~') : path;
    }
    void closeMenus() const
    {
        while (QWidget *menu = QApplication::activePopupWidget())
            menu->close();
    }

    const QString list = RecentDocuments::listOfTheDesktop();
};

TEST_F(RecentDocumentsTest, OffersTheLatestFirstAndOpensThem)
{
    putFile(list, foreignList);
    const QString first = saveNew(u"R&D.vexcards"_qs);
    document()->close();
    QDir(folder.path()).mkdir(u"below"_qs);
    saveNew(u"below/Friends.vexcards"_qs);
    const QString last = saveNew(u"Friends.vexcards"_qs);
    QMenu *menu = openMenu();
    EXPECT_EQ(titles(menu), QStringList({u"Friends.vexcards — "_qs + shown(folder.path()),
                                         u"Friends.vexcards — "_qs + shown(pathOf(u"below"_qs)),
                                         u"R&D.vexcards"_qs, QString(), u"Clear Menu"_qs}));
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return document()->fileURL() == first; }));
    ASSERT_TRUE(windowIsActive());
    EXPECT_EQ(titles(openMenu()).value(0), u"R&D.vexcards") << "used just now";
    closeMenus();

    ASSERT_TRUE(QFile::remove(first));
    menu = openMenu();
    EXPECT_FALSE(titles(menu).contains(u"R&D.vexcards"_qs));
    QTest::keyClick(menu, Qt::Key_C);
    EXPECT_TRUE(eventually([] { return !QApplication::activePopupWidget(); }));
    EXPECT_EQ(titles(openMenu()).value(0), u"No Recent Documents");
    closeMenus();
    const QByteArray left = contentOf(list);
    EXPECT_FALSE(left.contains("vexcards"));
    EXPECT_TRUE(left.contains("letter.odt") && left.contains("writer %u")) << "what others noted stays";
}

TEST_F(RecentDocumentsTest, AListThatCannotBeReadIsLeftAlone)
{
    putFile(list, "<xbel>no list");
    RecentDocuments documents;
    documents.add(u"/tmp/a.vexcards"_qs);
    documents.clear();
    EXPECT_EQ(documents.paths(), QStringList());
    EXPECT_EQ(contentOf(list), "<xbel>no list");

    RecentDocuments many(pathOf(u"own/list.xbel"_qs));
    for (int i = 0; i < 12; ++i) {
        const QString path = pathOf(u"%1 ü%.vexcards"_qs.arg(i));
        putFile(path, "x");
        many.add(path);
    }
    EXPECT_EQ(many.paths().size(), 10);
    EXPECT_EQ(many.paths().value(0), pathOf(u"11 ü%.vexcards"_qs));

    putFile(pathOf(u"shared.xbel"_qs), QByteArray(foreignList).replace("/home/user/letter.odt", "/tmp"));
    RecentDocuments shared(pathOf(u"shared.xbel"_qs));
    shared.add(u"/tmp"_qs);
    shared.clear();
    EXPECT_TRUE(contentOf(pathOf(u"shared.xbel"_qs)).contains("writer %u")) << "its note stays";
    EXPECT_FALSE(contentOf(pathOf(u"shared.xbel"_qs)).contains("vexarel"));
}

} // namespace
