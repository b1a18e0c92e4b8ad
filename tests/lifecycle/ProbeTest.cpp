#include "support/Files.h"
#include "support/Printers.h"

#include <QProcess>
#include <QTemporaryDir>

namespace
{

// The headless program as its users call it.
class Probe : public testing::Test
{
protected:
    Probe() { putFile(passwordFile, "correct horse"); }
    int run(const QStringList &words)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(QStringLiteral(VEXAREL_PROBE), words);
        EXPECT_TRUE(process.waitForFinished(-1));
        output = process.readAllStandardOutput().trimmed();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    const QString documents = QStringLiteral(VEXAREL_TEST_DATA "/documents/");
    QTemporaryDir folder;
    const QString passwordFile = folder.filePath(u"password"_qs);
    const QString file = folder.filePath(u"a.vexcards"_qs);
    QByteArray output;
};

TEST_F(Probe, OpensInEachOutcome)
{
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"version-30600", "correct horse", R"({"outcome":"unlocked","records":6,"categories":3})"},
        {"version-30600", "wrong", R"({"outcome":"wrong-password"})"},
        {"version-30600", "", R"({"outcome":"locked"})"},
        {"version-refused-30601", "correct horse", R"({"outcome":"refused-newer"})"},
        {"hostile-text", "correct horse",
         R"({"outcome":"refused","message":"It is not a Vexarel document or is damaged."})"},
    };
    for (const auto &[document, password, outcome] : cases) {
        SCOPED_TRACE(document);
        EXPECT_EQ(run({u"open"_qs, documents + QString::fromLatin1(document) + u".vexcards"_qs,
                       QString::fromLatin1(password)}),
                  0);
        EXPECT_EQ(output, outcome);
    }
}

TEST_F(Probe, SavesANewDocumentAndChangesAnOldOne)
{
    const QStringList save{u"save"_qs, file, passwordFile};
    EXPECT_EQ(run(save), 0);
    EXPECT_EQ(run(save), 0);
    EXPECT_EQ(run({u"inspect"_qs, file, passwordFile}), 0);
    EXPECT_TRUE(output.contains(R"("note":"**")")) << output.constData();

    // What another program did to the file meanwhile is not overwritten: nobody is there to be asked.
    qputenv("SAVETEST_HOOK", "echo >> " + QFile::encodeName(file));
    EXPECT_EQ(run(save), 1);
    qunsetenv("SAVETEST_HOOK");
    putFile(passwordFile, "wrong");
    const QByteArray before = contentOf(file);
    EXPECT_EQ(run(save), 1);
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(Probe, ResavesADocumentWithoutLoss)
{
    const QString original = documents + u"records-extra-types.vexcards"_qs;
    ASSERT_EQ(run({u"resave"_qs, original, passwordFile, file}), 0);
    ASSERT_EQ(run({u"inspect"_qs, original, passwordFile}), 0);
    const QByteArray told = output;
    EXPECT_TRUE(told.startsWith(R"({"archive":"ok","refused":false,"status":0,"records":[{)"));
    ASSERT_EQ(run({u"inspect"_qs, file, passwordFile}), 0);
    EXPECT_EQ(output, told);
}

} // namespace
