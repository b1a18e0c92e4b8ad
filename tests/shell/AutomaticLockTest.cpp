#include "lifecycle/MyDocument.h"
#include "lifecycle/VLRevertDocController.h"
#include "platform/UserDefaults.h"
#include "shell/MyAppDelegate.h"
#include "support/Printers.h"
#include "support/ScriptedDocumentWindow.h"
#include "support/TestServices.h"

#include <QTemporaryDir>

namespace
{

class AutomaticLock : public testing::Test
{
protected:
    AutomaticLock()
    {
        MyAppDelegate::initialize();
        defaults.setValue(enabled, true);
    }
    ~AutomaticLock() override
    {
        defaults.setValue(enabled, {});
        defaults.setValue(interval, {});
    }
    // Whether the lock comes after just so many seconds in the background.
    bool locksAfter(int seconds)
    {
        delegate.applicationDidResignActive();
        timers.advance(seconds - 1);
        EXPECT_EQ(queue.waiting(), 0U) << "too early";
        timers.advance(1);
        const bool locks = queue.waiting() > 0;
        delegate.applicationDidBecomeActive();
        return locks;
    }
    MyDocument *newDocument(ScriptedDocumentWindow &window, const QString &path)
    {
        auto *document = static_cast<MyDocument *>(controller.newDocument());
        document->setWindow(&window);
        document->setPlainPassword(u"correct horse"_qs);
        EXPECT_TRUE(path.isNull() || document->writeToFile(path));
        return document;
    }

    const QString enabled = u"autolocBackgroundEnabled"_qs;
    const QString interval = u"autolocBackgroundInterval"_qs;
    Foundation::UserDefaults &defaults = Foundation::UserDefaults::standardUserDefaults();
    ManualQueue queue;
    ManualTimers timers;
    QTemporaryDir folder;
    ScriptedDocumentWindow savedWindow;
    ScriptedDocumentWindow unsavedWindow;
    VLRevertDocController controller{[] { return std::make_unique<MyDocument>(); }};
    MyAppDelegate delegate{controller};
};

TEST_F(AutomaticLock, ComesAfterTheIntervalButNotBeforeHalfAMinute)
{
    const struct
    {
        int interval;
        int seconds; // 0: never
    } cases[] = {{1, 30}, {30, 30}, {31, 31}, {120, 120}, {0, 0}, {-5, 0}};
    MyDocument *document = newDocument(savedWindow, folder.filePath(u"a.vexcards"_qs));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.interval);
        defaults.setValue(interval, c.interval);
        EXPECT_EQ(locksAfter(c.seconds == 0 ? 100000 : c.seconds), c.seconds != 0);
        queue.drain();
        EXPECT_EQ(document->isEncrypted(), c.seconds != 0);
        document->setIsEncrypted(false);
    }
    document->setWindow(nullptr);
}

TEST_F(AutomaticLock, PassesOverANeverSavedDocumentAndComesOnce)
{
    MyDocument *saved = newDocument(savedWindow, folder.filePath(u"b.vexcards"_qs));
    MyDocument *unsaved = newDocument(unsavedWindow, QString());
    defaults.setValue(interval, 60);
    delegate.applicationDidResignActive();
    delegate.applicationDidResignActive();
    EXPECT_EQ(timers.pending(), 1U);
    timers.advance(60);
    queue.drain();
    EXPECT_TRUE(saved->isEncrypted());
    EXPECT_FALSE(unsaved->isEncrypted());
    saved->setIsEncrypted(false);
    timers.advance(1000);
    EXPECT_EQ(queue.waiting(), 0U);
    EXPECT_TRUE(delegate.repeatingAutomaticLockTimer()) << "the stale one stays until the next call";

    delegate.applicationDidResignActive();
    timers.advance(59);
    delegate.applicationDidBecomeActive();
    EXPECT_FALSE(delegate.repeatingAutomaticLockTimer());
    timers.advance(1000);
    EXPECT_EQ(queue.waiting(), 0U) << "back in time";
    defaults.setValue(enabled, false);
    delegate.applicationDidResignActive();
    EXPECT_EQ(timers.pending(), 0U);
    saved->setWindow(nullptr);
    unsaved->setWindow(nullptr);
}

} // namespace
