#include "support/TestServices.h"
#include "window/WindowTest.h"

#include <QTimer>

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
    // A contact whose name has changed since it was saved.
    void makeEditedDocument()
    {
        makeProtectedDocument();
        addContact(u"Ada"_qs, u"Byron"_qs);
        saveTo(u"Session.vexcards"_qs);
        enterField("lastName", u"Lovelace"_qs);
    }

    QStringList asked;
    const QString path = pathOf(u"Session.vexcards"_qs);
};

TEST_F(SessionEndTest, ChangesOfADocumentWithAFileAreSavedWithoutAQuestionUnlessItIsLocked)
{
    for (const bool isLocked : {false, true}) {
        makeEditedDocument();
        if (isLocked)
            document()->doLockDocument();
        const QByteArray before = contentOf(path);
        EXPECT_TRUE(document()->isDocumentEdited());
        EXPECT_TRUE(mayEnd(1001));
        EXPECT_EQ(asked, QStringList());
        EXPECT_EQ(contentOf(path) == before, isLocked);
        EXPECT_EQ(document()->isDocumentEdited(), isLocked);
        document()->close();
        QFile::remove(path);
    }
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

    makeEditedDocument();
    const QByteArray before = contentOf(path);
    window()->close();
    nextAlert();
    EXPECT_FALSE(mayEnd(1001));
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(contentOf(path), before) << "the answer may still be to discard";
}

// As some desktops end a program to which they have spoken before.
TEST_F(SessionEndTest, TheWordToQuitThenAsksNobody)
{
    makeProtectedDocument();
    addContact(u"Ada"_qs, u"Byron"_qs);
    EXPECT_TRUE(mayEnd(1000));
    QTimer::singleShot(0, qApp, [] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); });
    QTimer patience;
    patience.callOnTimeout([] { QCoreApplication::exit(1); });
    patience.start(Patience);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(sheet(), nullptr);
    ASSERT_NE(document(), nullptr);
    EXPECT_TRUE(document()->isRecoverable());
}

} // namespace
