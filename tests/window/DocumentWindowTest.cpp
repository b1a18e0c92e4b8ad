#include "window/WindowTest.h"
#include "window/controls/InterfaceProperties.h"
#include "window/controls/ProgressSpinner.h"
#include "window/list/RecordTable.h"
namespace
{

const QString sample = QStringLiteral(VEXAREL_TEST_DATA "/documents/");

} // namespace

class DocumentWindowTest : public WindowTest
{
protected:
    // A saved document of that many contacts with a free-text name.
    void makeSavedDocument(const QStringList &firstNames)
    {
        makeProtectedDocument();
        for (const QString &name : firstNames)
            addContact(name, u"X"_qs);
        saveTo(u"Friends.vexcards"_qs);
    }
};

TEST_F(DocumentWindowTest, CancellingTheFirstPasswordClosesTheDocument)
{
    for (const int way : {0, 1}) {
        makeNewDocument();
        document()->updateChangeCount(Foundation::Document::ChangeDone);
        if (way == 0)
            press(Qt::Key_Escape);
        else
            answer(u"Cancel"_qs);
        EXPECT_TRUE(isClosed());
    }
}

TEST_F(DocumentWindowTest, MainJobIsDoneByKeysAlone)
{
    makeProtectedDocument();
    addContact(u"Zoë"_qs, u"Åström"_qs);
    addContact(u"Борис"_qs, u"Кант"_qs);
    addContact(u"😀 “R&D”"_qs, u"<b>bold</b>"_qs);
    const QStringList all = {u"Zoë Åström"_qs, u"Борис Кант"_qs, u"😀 “R&D” <b>bold</b>"_qs};
    EXPECT_EQ(names(), all);
    const QString path = pathOf(u"Friends.vexcards"_qs);
    chooseNextPath(pathOf(u"Friends"_qs));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(QFileInfo::exists(path)) << "the suffix is added";
    press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_TRUE(isClosed()) << "nothing to ask";

    openDocument(path);
    EXPECT_FALSE(control<QWidget>("openFace")) << "the locked window does not have it at all";
    EXPECT_EQ(control<QLabel>("lockedTitle")->text(), u"Friends.vexcards is locked"_qs);
    EXPECT_EQ(window()->windowTitle(), u"Friends[*] — locked"_qs);
    EXPECT_FALSE(controller()->isToolbarVisible());
    unlock(u"wrong horse"_qs);
    EXPECT_EQ(nextAlert().value(0), u"Wrong Password");
    dismiss(Qt::Key_Return);
    EXPECT_TRUE(document()->isEncrypted());
    unlock(password); // The wrong one is selected and gets replaced.
    ASSERT_TRUE(document()->isDecrypted());
    EXPECT_EQ(names(), all);
    EXPECT_TRUE(control<QWidget>("lockedFace")->isHidden());
    EXPECT_TRUE(controller()->isToolbarVisible());
    EXPECT_EQ(control<QLineEdit>("passwordToDecryptField")->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), control<QWidget>("myTableView"));
    EXPECT_EQ(window()->windowTitle(), u"Friends[*]"_qs);

    press(Qt::Key_End);
    EXPECT_EQ(control<QTextEdit>("recordName")->toPlainText(), all.last()) << "names are shown as they are";
    press(Qt::Key_F2);
    EXPECT_EQ(document()->selectedView(), MyDocument::EditMode);
    EXPECT_EQ(field("lastName"), u"<b>bold</b>"_qs);
    control<QWidget>("note")->setFocus();
    press(Qt::Key_F2);
    EXPECT_EQ(document()->selectedView(), MyDocument::ViewMode);
    EXPECT_EQ(QApplication::focusWidget(), control<QWidget>("myTableView")) << "no key goes into nothing";
}

TEST_F(DocumentWindowTest, TabGoesThroughTheFormInReadingOrder)
{
    makeProtectedDocument();
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    QStringList order;
    for (int i = 0; i < 18; ++i) {
        order.append(QApplication::focusWidget()->objectName());
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              u"firstName lastName company category isCompany phoneWork pager faxWork emailWork "
              "webWork addressWork phonePersonal mobile faxPersonal emailPersonal webPersonal "
              "addressPersonal note"_qs);
}

TEST_F(DocumentWindowTest, ClosingAnEditedDocumentAsks)
{
    makeSavedDocument({u"A"_qs});
    control<QPlainTextEdit>("note")->setFocus();
    type(u"changed"_qs);
    window()->close();
    ASSERT_EQ(nextAlert().value(0), u"Do you want to save the changes to the document “Friends.vexcards”?");
    dismiss(Qt::Key_Escape);
    EXPECT_TRUE(window()->isVisible()) << "Escape keeps it";

    window()->close();
    nextAlert();
    answer(u"Discard"_qs);
    ASSERT_TRUE(isClosed());
    openDocument(pathOf(u"Friends.vexcards"_qs));
    unlock(password);
    EXPECT_EQ(control<QPlainTextEdit>("note")->toPlainText(), QString()) << "nothing was written";

    press(Qt::Key_F2);
    enterField("lastName", u"Kept"_qs);
    window()->close();
    nextAlert();
    press(Qt::Key_Return);
    ASSERT_TRUE(isClosed());
    openDocument(pathOf(u"Friends.vexcards"_qs));
    unlock(password);
    EXPECT_EQ(names().value(0), u"A Kept"_qs);
}

TEST_F(DocumentWindowTest, LockedFaceOffersOnlyWhatALockedDocumentCanDo)
{
    openDocument(sample + u"version-30600.vexcards"_qs);
    runEvents();
    const QStringList enabled = {u"newItem"_qs,  u"openItem"_qs,  u"closeItem"_qs,
                                 u"quitItem"_qs, u"pasteItem"_qs, u"selectAllItem"_qs};
    for (const QAction *item : window()->findChildren<QAction *>()) {
        if (textProperty(item, InterfaceProperty::Action).isEmpty())
            continue;
        EXPECT_EQ(item->isEnabled(), enabled.contains(item->objectName()))
            << item->objectName().toStdString();
    }
    EXPECT_FALSE(control<QWidget>("phoneWork"));
}

TEST_F(DocumentWindowTest, WindowTakesTheFrameOfTheFile)
{
    makeProtectedDocument();
    const QRect placed(40, 70, 700, 500);
    window()->setGeometry(placed);
    controller()->setToolbarVisible(false);
    chooseNextPath(pathOf(u"Placed.vexcards"_qs));
    press(Qt::Key_S, Qt::ControlModifier);
    document()->close();
    ASSERT_TRUE(isClosed());

    openDocument(pathOf(u"Placed.vexcards"_qs));
    const Foundation::Size locked = controller()->minSize();
    EXPECT_EQ(window()->size(), QSize(int(locked.width), int(locked.height)));
    unlock(password);
    EXPECT_EQ(window()->geometry(), placed);
    EXPECT_FALSE(controller()->isToolbarVisible());
    EXPECT_GT(controller()->minSize().width, locked.width) << "the open face needs more room";
}

TEST_F(DocumentWindowTest, WindowOfAFileWithoutAFrameGrowsByItself)
{
    openDocument(sample + u"platform-missing.vexcards"_qs);
    const int lockedWidth = window()->width();
    unlock(password);
    ASSERT_TRUE(document()->isDecrypted());
    EXPECT_GT(window()->width(), lockedWidth + 100);
    EXPECT_TRUE(window()->screen()->availableGeometry().contains(QRect(window()->pos(), window()->size())));
}

TEST_F(DocumentWindowTest, AWindowThatIsCalledUpUnderASheetCallsUpTheSheet)
{
    makeNewDocument();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(eventually([&other] { return other.isActiveWindow(); }));
    controller()->makeKeyAndOrderFront();
    EXPECT_TRUE(sheetComes(VLCryptoDoc::MandatoryPasswordSheet));
}

TEST_F(DocumentWindowTest, ToolbarIsToldRightlyWhileTheWindowIsHidden)
{
    makeProtectedDocument();
    controller()->orderOut();
    for (const bool isVisible : {true, false, true}) {
        controller()->setToolbarVisible(isVisible);
        EXPECT_EQ(controller()->isToolbarVisible(), isVisible);
    }
    controller()->makeKeyAndOrderFront();
    item("showToolbarItem")->trigger();
    EXPECT_FALSE(control<QWidget>("modernToolbar")->isVisible());
}

TEST_F(DocumentWindowTest, ProgressIsPaintedBeforeTheWorkBegins)
{
    openDocument(sample + u"version-30600.vexcards"_qs);
    auto *spinner = control<ProgressSpinner>("decryptProgressIndicator");
    const QImage idle = spinner->grab().toImage();
    controller()->setDecryptProgressShown(true);
    EXPECT_NE(spinner->grab().toImage(), idle);
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    controller()->setDecryptProgressShown(false);
    EXPECT_EQ(spinner->grab().toImage(), idle);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(DocumentWindowTest, ReplacingAFileIsAskedAboutByItsWholeName)
{
    makeProtectedDocument();
    const QString other = pathOf(u"<b>.vexcards"_qs);
    putFile(other, "old");
    chooseNextPath(pathOf(u"<b>"_qs));
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(nextAlert().value(0), u"“<b>.vexcards” already exists. Do you want to replace it?"_qs);
    press(Qt::Key_Escape);
    ASSERT_TRUE(eventually([this] { return suggestedPaths.size() == 2; })) << "the panel comes back";
    EXPECT_EQ(suggestedPaths.last(), other);
    EXPECT_EQ(contentOf(other), "old");
    nextAlert();
    answer(u"Replace"_qs);
    EXPECT_TRUE(eventually([&other] { return contentOf(other).size() > 3; }));
    EXPECT_EQ(window()->windowTitle(), u"<b>[*]"_qs);
}

TEST_F(DocumentWindowTest, WindowsDoNotHideOneAnother)
{
    openDocument(sample + u"version-30600.vexcards"_qs);
    const QPoint first = window()->pos();
    openDocument(sample + u"records-none.vexcards"_qs);
    EXPECT_NE(window()->pos(), first);
    openDocument(sample + u"version-30600.vexcards"_qs);
    EXPECT_EQ(application.documentController().documents().size(), 2) << "an open file is only raised";
}
