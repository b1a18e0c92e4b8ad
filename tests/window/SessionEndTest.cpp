#include "support/Printers.h"
#include "support/TestServices.h"
#include "window/WindowTest.h"

#include <QPlainTextEdit>

namespace
{

class SessionEndTest : public WindowTest
{
protected:
    bool mayEnd(int answer, bool mayAsk = true)
    {
        ScriptedModalAlerts alerts;
        alerts.nextAnswers = {answer};
        const bool may = application.mayEndSession([mayAsk] { return mayAsk; });
        asked.clear();
        for (const auto &alert : alerts.shown)
            asked.append(alert.message);
        return may;
    }
    void save()
    {
        chooseNextPath(path);
        press(Qt::Key_S, Qt::ControlModifier);
        ASSERT_FALSE(document()->isDocumentEdited());
    }
    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList asked;
    const QString path = pathOf(u"Session.vexcards"_qs);
};

TEST_F(SessionEndTest, ChangesOfADocumentWithAFileAreSavedWithoutAQuestion)
{
    makeProtectedDocument();
    addContact(u"Ada"_qs, u"Byron"_qs);
    save();
    enterField("lastName", u"Lovelace"_qs);
    const QByteArray before = content();
    EXPECT_TRUE(mayEnd(1001));
    EXPECT_EQ(asked, QStringList());
    EXPECT_NE(content(), before);
    EXPECT_FALSE(document()->isDocumentEdited());
}

TEST_F(SessionEndTest, ALockedDocumentIsNeitherSavedNorAskedAbout)
{
    makeProtectedDocument();
    addContact(u"Ada"_qs, u"Byron"_qs);
    save();
    enterField("lastName", u"Lovelace"_qs);
    document()->doLockDocument();
    const QByteArray before = content();
    EXPECT_TRUE(document()->isDocumentEdited());
    EXPECT_TRUE(mayEnd(1001));
    EXPECT_EQ(asked, QStringList());
    EXPECT_EQ(content(), before);
}

TEST_F(SessionEndTest, AsksAboutADocumentWithoutANameAndAboutOneThatIsBeingAskedAbout)
{
    makeProtectedDocument();
    addContact(u"Ada"_qs, u"Byron"_qs);
    EXPECT_FALSE(mayEnd(1001));
    EXPECT_EQ(asked, QStringList{u"The document “Untitled” has changes that are not saved."_qs});
    EXPECT_TRUE(document()->isRecoverable()) << "they are safe all the same";
    EXPECT_TRUE(mayEnd(1000));
    EXPECT_EQ(asked.size(), 1);
    EXPECT_TRUE(mayEnd(1001, false)) << "nobody to answer";
    EXPECT_EQ(asked, QStringList());

    save();
    enterField("lastName", u"Lovelace"_qs);
    const QByteArray before = content();
    window()->close();
    nextAlert();
    EXPECT_FALSE(mayEnd(1001));
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(content(), before) << "the answer may still be to discard";
}

} // namespace
