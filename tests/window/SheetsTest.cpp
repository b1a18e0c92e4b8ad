#include "helpers/VLColorUtilOSX.h"
#include "platform/ColorPanel.h"
#include "window/WindowTest.h"
#include "window/controls/ColorWell.h"
#include "window/desktop/DesktopColorPanel.h"
#include "window/list/CategoryTable.h"

using Foundation::Color;

namespace
{

class SheetsTest : public WindowTest
{
protected:
    void SetUp() override
    {
        makeProtectedDocument();
        addContact(u"Zoë"_qs, u"Åström"_qs);
    }
    Foundation::Ref<Foundation::Dictionary> category(std::size_t row) const
    {
        return document()->myCategoryArrayController()->arrangedObjects()[row];
    }
    Color colorOf(std::size_t row, const Foundation::Key &key) const
    {
        return VLColorUtilOSX::NSColorFromDict(category(row)->value(key).dictionary());
    }
    void openCategories() const
    {
        press(Qt::Key_K, Qt::ControlModifier);
        ASSERT_TRUE(sheetComes(u"myCategorySheet"_qs));
    }
    void addCategory() const
    {
        QTest::mouseClick(control<QPushButton>("addCategory"), Qt::LeftButton);
        runEvents();
    }
    // The sheet must be called by its item: it has no key.
    void openCaptions() const
    {
        item("editLabelsItem")->trigger();
        ASSERT_TRUE(sheetComes(u"myLabelSheet"_qs));
    }
    void choose(QAbstractButton *well, const QColor &color) const
    {
        well->setFocus();
        press(Qt::Key_Space);
        QColorDialog *panel = DesktopColorPanel::shared().dialog();
        ASSERT_TRUE(panel);
        EXPECT_FALSE(panel->isModal());
        panel->setCurrentColor(color);
    }
};

TEST_F(SheetsTest, ACategoryIsMadeNamedAndColouredByKeys)
{
    openCategories();
    auto *table = control<CategoryTable>("myCategoryTableView");
    EXPECT_EQ(QApplication::focusWidget(), table);
    EXPECT_FALSE(control<QPushButton>("removeCategory")->isEnabled()) << "in use, and the last one";
    addCategory();
    ASSERT_EQ(table->model()->rowCount(), 2);
    EXPECT_EQ(field("categoryName"), u"Generic 1");
    EXPECT_EQ(control<QLineEdit>("categoryName")->selectedText(), u"Generic 1") << "ready for a name";
    for (const int row : {0, 1}) {
        table->selectRow(row);
        EXPECT_EQ(control<QPushButton>("removeCategory")->isEnabled(), row == 1) << "no contact bears it";
    }

    document()->updateChangeCount(Foundation::Document::ChangeCleared);
    enterField("categoryName", u"R&D"_qs);
    EXPECT_EQ(category(1)->value(CategoryKey::cat_category).stringValue(), u"R&D");
    EXPECT_TRUE(document()->isDocumentEdited());
    EXPECT_EQ(table->model()->index(1, 0).data(Qt::AccessibleTextRole).toString(),
              u"R&D, 0 contacts, 2 of 2");

    auto *back = control<ColorWell>("backColorWell");
    choose(back, QColor(204, 51, 0));
    EXPECT_TRUE(back->isActive());
    EXPECT_EQ(back->accessibleDescription(), u"#cc3300");
    EXPECT_NEAR(colorOf(1, CategoryKey::cat_backColor).red, 0.8, 1e-4) << "while the panel stands";
    EXPECT_EQ(colorOf(1, CategoryKey::cat_textColor), (Color{1, 1, 1})) << "the other well is not active";
    auto *text = control<ColorWell>("textColorWell");
    choose(text, QColor(255, 255, 0));
    EXPECT_FALSE(back->isActive());
    EXPECT_NEAR(colorOf(1, CategoryKey::cat_textColor).blue, 0, 1e-4);
    EXPECT_NEAR(colorOf(1, CategoryKey::cat_backColor).red, 0.8, 1e-4);

    dismiss(u"Done"_qs);
    EXPECT_FALSE(DesktopColorPanel::shared().dialog()) << "the panel goes with the sheet";
    const auto *popUp = control<QComboBox>("myActionPopup");
    EXPECT_EQ(popUp->itemText(popUp->count() - 1), u"R&D");
}

TEST_F(SheetsTest, CategoriesAreCountedByTheContactsThatHaveThem)
{
    press(Qt::Key_D, Qt::ControlModifier);
    document()->undoManager().undo(); // The stored count is one too low now.
    openCategories();
    addCategory();
    auto *table = control<CategoryTable>("myCategoryTableView");
    table->selectRow(0);
    EXPECT_EQ(table->model()->index(0, CategoryTableModel::UseColumn).data().toInt(), 1);
    EXPECT_FALSE(control<QPushButton>("removeCategory")->isEnabled());
    dismiss(Qt::Key_Escape);
}

TEST_F(SheetsTest, ThePanelWritesWhatTheUserChoosesAndNothingElse)
{
    const auto exact = VLColorUtilOSX::dictFromNSColor({0.1, 0.123456789, 0.3, 0.5});
    category(0)->setValue(CategoryKey::cat_backColor, exact);
    openCategories();
    addCategory();
    auto *back = control<ColorWell>("backColorWell");
    choose(back, QColor(10, 20, 30));
    document()->updateChangeCount(Foundation::Document::ChangeCleared);
    // With another category the well shows that one's colour, and the panel too.
    control<CategoryTable>("myCategoryTableView")->selectRow(0);
    EXPECT_EQ(category(0)->value(CategoryKey::cat_backColor).dictionary(), exact);
    EXPECT_FALSE(document()->isDocumentEdited());
    EXPECT_NEAR(DesktopColorPanel::shared().dialog()->currentColor().alphaF(), 0.5, 3e-3);
    EXPECT_NEAR(colorOf(1, CategoryKey::cat_backColor).blue, 30 / 255.0, 1e-4)
        << "the former one keeps its own";
    // A panel that the user closed belongs to nobody.
    DesktopColorPanel::shared().dialog()->close();
    runEvents();
    EXPECT_FALSE(back->isActive());
    Foundation::ColorPanel::shared().setColor({1, 0, 0});
    EXPECT_EQ(category(0)->value(CategoryKey::cat_backColor).dictionary(), exact);

    dismiss(Qt::Key_Escape);
}

TEST_F(SheetsTest, ThePanelGoesFromOneWindowToAnother)
{
    QWidget windows[2];
    ColorWell wells[] = {ColorWell(&windows[0]), ColorWell(&windows[1])};
    for (ColorWell &well : wells) {
        well.window()->show();
        well.click();
    }
    runEvents();
    EXPECT_FALSE(wells[0].isActive());
    EXPECT_TRUE(wells[1].isActive()) << "the first window's panel has gone by now";
}

TEST_F(SheetsTest, CaptionsReachTheFormAtEveryLetterAndFlagsShowTheirButton)
{
    openCaptions();
    document()->updateChangeCount(Foundation::Document::ChangeCleared);
    enterField("pagerCaption", u"Boat & car:"_qs);
    EXPECT_TRUE(document()->isDocumentEdited());
    control<QLineEdit>("phoneWorkCaption")->clear();
    const auto *label = window()->findChild<QLabel *>(u"pagerLabel"_qs);
    EXPECT_EQ(label->text(), u"Boat && car:") << "with a buddy, the sign stands doubled for itself";
    const auto *button = window()->findChild<QToolButton *>(u"openPager"_qs);
    EXPECT_TRUE(button->isHidden());
    document()->updateChangeCount(Foundation::Document::ChangeCleared);
    control<QCheckBox>("open06")->click();
    EXPECT_TRUE(document()->isDocumentEdited());
    EXPECT_FALSE(button->isHidden());
    EXPECT_EQ(button->accessibleName(), u"Open Boat & car");
    const auto *nameless = window()->findChild<QLineEdit *>(u"phoneWork"_qs);
    EXPECT_EQ(nameless->accessibleName(), u"Phone work") << "without a caption it is still called something";
    dismiss(u"Done"_qs);

    chooseNextPath(pathOf(u"captions.vexcards"_qs));
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(eventually([this] { return !document()->isDocumentEdited(); }));
    openDocument(pathOf(u"captions.vexcards"_qs));
    unlock(password);
    const auto &labels = *document()->myLabelDictionary();
    EXPECT_EQ(labels.value(RecordKey::pager).stringValue(), u"Boat & car:");
    EXPECT_EQ(labels.value(RecordKey::phoneWork).stringValue(), u"");
    EXPECT_TRUE(labels.value(u"open06").boolValue());
}

} // namespace
