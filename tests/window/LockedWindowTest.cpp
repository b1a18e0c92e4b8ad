#include "window/WindowTest.h"
#include "window/controls/InterfaceProperties.h"
#include "window/desktop/DesktopColorPanel.h"

#include <QAccessible>

namespace
{

const QString secret = u"Quxwombat"_qs;

class LockedWindowTest : public WindowTest
{
protected:
    void SetUp() override
    {
        makeProtectedDocument();
        addContact(secret, u"Åström"_qs);
        document()->myCategoryArrayController()->setValueForSelection(CategoryKey::cat_category, secret);
        document()->myLabelDictionary()->setValue(RecordKey::pager, secret);
        saveTo(u"Locked.vexcards"_qs);
        document()->categoryCommands().synkCategorySubMenu({});
        Q_EMIT item("myCategorySuperMenuItem")->menu()->aboutToShow();
    }
    void lock()
    {
        press(Qt::Key_L, Qt::ControlModifier);
        EXPECT_EQ(nextAlert().value(0), u"Lock Document back to the crypted state?"_qs);
        answer(u"OK"_qs);
        EXPECT_TRUE(eventually([this] { return document()->isEncrypted(); }));
        EXPECT_TRUE(windowIsActive());
    }
    QStringList enabledCommands() const
    {
        QStringList commands;
        for (const QAction *item : window()->findChildren<QAction *>()) {
            const QString command = textProperty(item, InterfaceProperty::Action);
            if (item->isEnabled() && !command.isEmpty() && !commands.contains(command))
                commands.append(command);
        }
        commands.sort();
        return commands;
    }
    // All that assistive technology can find out below an object.
    static void collectTexts(QAccessibleInterface *object, QStringList &texts)
    {
        if (!object || !object->isValid())
            return;
        for (const QAccessible::Text kind :
             {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help})
            texts.append(object->text(kind));
        if (QAccessibleTextInterface *text = object->textInterface())
            texts.append(text->text(0, text->characterCount()));
        for (int i = 0; i < object->childCount(); ++i)
            collectTexts(object->child(i), texts);
    }
    QString accessibleTexts() const
    {
        QStringList texts;
        collectTexts(QAccessible::queryAccessibleInterface(window()), texts);
        return texts.join(u'\n');
    }
};

TEST_F(LockedWindowTest, HasNothingOfTheContentAndOpensAsItWas)
{
    press(Qt::Key_F, Qt::ControlModifier);
    type(secret);
    EXPECT_TRUE(accessibleTexts().contains(secret));
    const QRect open = window()->frameGeometry();
    lock();
    EXPECT_FALSE(accessibleTexts().contains(secret)) << accessibleTexts().toStdString();
    EXPECT_LT(window()->frameGeometry().height(), open.height());
    EXPECT_EQ(window()->frameGeometry().y(), open.y()) << "the upper edge stays";
    EXPECT_EQ(QApplication::focusWidget(), control<QLineEdit>("passwordToDecryptField"));
    EXPECT_FALSE(item("myCategorySuperMenuItem")->isEnabled());
    const QStringList allowed = {u"duplicateRow"_qs, u"newDocument"_qs, u"openDocument"_qs, u"paste"_qs,
                                 u"performClose"_qs, u"selectAll"_qs,   u"terminate"_qs};
    EXPECT_TRUE(eventually([&] { return enabledCommands() == allowed; }))
        << enabledCommands().join(u' ').toStdString();
    QAction forgotten; // Its responder says that it is enabled, and nothing names it.
    forgotten.setProperty(InterfaceProperty::Action, u"scrollListViewToBottom"_qs);
    ActionDispatcher dispatcher(document(), [this](const QString &) { return document()->responders(); });
    dispatcher.addItem(&forgotten);
    dispatcher.validate();
    EXPECT_FALSE(forgotten.isEnabled());
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);

    unlock(password);
    press(Qt::Key_Return); // Twice, as impatient users do.
    ASSERT_TRUE(document()->isDecrypted());
    EXPECT_EQ(document()->selectedView(), MyDocument::ViewMode);
    EXPECT_TRUE(eventually([this] {
        press(Qt::Key_Return);
        return document()->selectedView() == MyDocument::EditMode;
    }));
    EXPECT_EQ(names(), QStringList{secret + u" Åström"_qs});
    EXPECT_TRUE(control<QToolBar>("modernToolbar")->isVisible());
    EXPECT_EQ(control<QLineEdit>("searchField")->text(), secret) << "the search survives";
    EXPECT_TRUE(control<QWidget>("grayStatusView")->isVisible());
    EXPECT_EQ(control<QLabel>("pagerLabel")->text(), secret);
    EXPECT_TRUE(accessibleTexts().contains(secret));
}

TEST_F(LockedWindowTest, LocksByItselfUnderASheetWithItsColourPanel)
{
    press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_TRUE(sheetComes(u"myCategorySheet"_qs));
    control<QWidget>("backColorWell")->setFocus();
    press(Qt::Key_Space);
    ASSERT_TRUE(DesktopColorPanel::shared().dialog());
    document()->lockAutomatically();
    EXPECT_TRUE(eventually([this] { return document()->isEncrypted(); }));
    EXPECT_TRUE(windowIsActive());
    EXPECT_FALSE(sheet());
    EXPECT_FALSE(DesktopColorPanel::shared().dialog());
    unlock(password);
    EXPECT_TRUE(document()->isDecrypted());
}

// Assistive technology and the desktop's menus reach the commands of a window under a sheet.
TEST_F(LockedWindowTest, SheetsThatWaitedForTheLockQuestionNeverCome)
{
    press(Qt::Key_L, Qt::ControlModifier);
    nextAlert();
    document()->categoryCommands().editCategoriesSheet({});
    document()->updateChangeCount(Foundation::Document::ChangeDone);
    std::optional<bool> mayQuit;
    application.documentController().closeAllDocuments([&](bool quits) { mayQuit = quits; });
    answer(u"OK"_qs);
    EXPECT_TRUE(eventually([this] { return document()->isEncrypted(); }));
    document()->categoryCommands().editCategoriesSheet({});
    EXPECT_TRUE(windowIsActive()) << "a sheet stands on the locked window";
    EXPECT_EQ(mayQuit, false) << "a question that was not answered keeps the document";
    unlock(u"wrong"_qs);
    EXPECT_EQ(nextAlert().value(0), u"Wrong Password");
    dismiss(Qt::Key_Return);
}

} // namespace
