#include "window/sheets/FilePanels.h"

#include "support/Files.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>

TEST(FilePanels, SuffixIsAddedOnce)
{
    const std::tuple<const char *, const char *> cases[] = {
        {"/a/Friends", "/a/Friends.vexcards"},          {"/a/Friends.vexcards", "/a/Friends.vexcards"},
        {"/a/Friends.VEXCARDS", "/a/Friends.VEXCARDS"}, {"/a/Friends.v2", "/a/Friends.v2.vexcards"},
        {"/a/vexcards", "/a/vexcards.vexcards"},        {"/a.vexcards/b", "/a.vexcards/b.vexcards"},
    };
    for (const auto &[chosen, path] : cases)
        EXPECT_EQ(withDocumentSuffix(QString::fromLatin1(chosen)).toStdString(), path);
}

TEST(FilePanels, ReadNothingOfTheFilesThatTheyList)
{
    const QTemporaryDir folder;
    const QFileInfo script(folder.filePath(u"a"_qs));
    const QFileInfo picture(folder.filePath(u"b"_qs));
    putFile(script.filePath(), "#!/bin/sh\n");
    putFile(picture.filePath(), "\x89PNG\r\n\x1a\n");
    const std::unique_ptr<QFileDialog> panel(newOpenPanel(nullptr));
    EXPECT_NE(QFileIconProvider().type(script), QFileIconProvider().type(picture));
    EXPECT_EQ(panel->iconProvider()->type(script), panel->iconProvider()->type(picture));
}

TEST(FilePanels, LeaveNoTraceOfWhatTheyShowed)
{
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    {
        QFileDialog careless;
        careless.setDirectory(home.path());
    }
    EXPECT_FALSE(QDir(home.path()).isEmpty()) << "the danger is gone, and so may the rule be";
    QDir(home.path()).removeRecursively();
    ASSERT_TRUE(QDir().mkpath(home.path()));

    keepNoPanelHistory();
    QFileDialog *save = newSavePanel(home.filePath(u"Untitled.vexcards"_qs), nullptr);
    save->open();
    QMetaObject::invokeMethod(save, "accept");
    delete save;
    delete newOpenPanel(nullptr);
    QSettings settings(u"QtProject"_qs);
    EXPECT_TRUE(settings.allKeys().isEmpty());
    EXPECT_TRUE(QDir(home.path()).isEmpty());
}

TEST(FilePanels, QuotationMarksBelongToTheName)
{
    const QTemporaryDir folder;
    const QString quoted = folder.filePath(u"My \"best\" friends.vexcards"_qs);
    const QString plain = folder.filePath(u"plain.vexcards"_qs);
    const QString other = folder.filePath(u"other.vexcards"_qs);
    putFile(plain, {});
    putFile(other, {});
    const struct
    {
        const char *how;
        QFileDialog *panel;
        QString typed;
        QStringList chosen;
    } cases[] = {
        {"saved", newSavePanel(folder.filePath(u"a"_qs), nullptr), quoted, {quoted}},
        {"suggested", newSavePanel(quoted, nullptr), {}, {quoted}},
        {"opened", newOpenPanel(nullptr), quoted, {quoted}},
        {"several names", newOpenPanel(nullptr), u"\"%1\" \"%2\""_qs.arg(plain, other), {plain, other}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.how);
        c.panel->setDirectory(folder.path());
        QStringList chosen;
        QObject::connect(c.panel, &QFileDialog::filesSelected,
                         [&chosen](const QStringList &files) { chosen = files; });
        if (!c.typed.isEmpty())
            c.panel->findChild<QLineEdit *>(u"fileNameEdit"_qs)->setText(c.typed);
        QMetaObject::invokeMethod(c.panel, "accept");
        EXPECT_EQ(chosen, c.chosen);
        delete c.panel;
        putFile(quoted, {});
    }
}

TEST(FilePanels, SavePanelSuggestsTheNameAndLeavesTheQuestionToUs)
{
    const QTemporaryDir folder;
    QFileDialog *panel = newSavePanel(folder.filePath(u"Untitled.vexcards"_qs), nullptr);
    EXPECT_EQ(panel->selectedFiles(), QStringList(folder.filePath(u"Untitled.vexcards"_qs)));
    EXPECT_TRUE(panel->testOption(QFileDialog::DontConfirmOverwrite));
    delete panel;
}
