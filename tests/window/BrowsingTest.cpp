#include "window/WindowTest.h"
#include "window/controls/SearchField.h"
#include "window/list/StatusStrip.h"

#include <QAbstractItemView>

namespace
{

class BrowsingTest : public WindowTest
{
protected:
    // Two contacts in two categories: new ones come into the last, "R&D", and the second is moved.
    void makeTwoContacts()
    {
        makeProtectedDocument();
        document()->myCategoryArrayController()->addWithName(u"R&D"_qs);
        document()->categoryCommands().synkCategorySubMenu({});
        addContact(u"Zoë"_qs, u"Åström"_qs);
        addContact(u"Борис"_qs, u"Кант"_qs);
        auto *category = control<QComboBox>("category");
        category->setFocus();
        press(Qt::Key_Home);
        press(Qt::Key_F2); // to view mode
        ASSERT_EQ(QApplication::focusWidget(), list());
    }
    QWidget *list() const { return control<QWidget>("myTableView"); }
    QString searched() const { return control<SearchField>("searchField")->text(); }
    QString told() const { return control<QLabel>("usedFilter")->text().simplified(); }
    bool isStripShown() const { return control<StatusStrip>("grayStatusView")->isVisible(); }
};

const QString zoe = u"Zoë Åström"_qs;
const QString boris = u"Борис Кант"_qs;

TEST_F(BrowsingTest, SearchingByKeysNarrowsAtEveryLetter)
{
    makeTwoContacts();
    EXPECT_FALSE(isStripShown());
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), control<SearchField>("searchField"));
    type(u"k"_qs);
    EXPECT_EQ(names(), QStringList());
    EXPECT_TRUE(isStripShown());
    EXPECT_EQ(told(), u"search string \"k\"");
    EXPECT_EQ(control<QLabel>("placeholderHint")->text(), u"Show all contacts or search for something else");
    press(Qt::Key_Backspace);
    type(u"ка"_qs);
    EXPECT_EQ(names(), QStringList{boris});
    EXPECT_TRUE(document()->myArrayController()->canRemove()) << "what is found first is selected";
    press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), list());

    press(Qt::Key_F, Qt::ControlModifier);
    type(u"z"_qs);
    EXPECT_EQ(searched(), u"z") << "the former text was selected";
    press(Qt::Key_Escape);
    EXPECT_EQ(names(), (QStringList{zoe, boris}));
    EXPECT_FALSE(isStripShown());
    EXPECT_EQ(document()->searchText(), u"");
}

TEST_F(BrowsingTest, OneCategoryIsShownByPopUpMenuAndStrip)
{
    makeTwoContacts();
    auto *popUp = control<QComboBox>("myActionPopup");
    EXPECT_EQ(popUp->count(), 4);
    EXPECT_EQ(popUp->currentText(), u"Show All");
    popUp->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(popUp->currentText(), u"R&D");
    EXPECT_EQ(names(), QStringList{zoe});
    EXPECT_EQ(told(), u"category \"R&D\"");
    press(Qt::Key_Home);
    EXPECT_EQ(popUp->currentText(), u"Show All") << "the title above it is no choice";
    EXPECT_EQ(names(), (QStringList{zoe, boris}));

    QMenu *categories = item("myCategorySuperMenuItem")->menu();
    ASSERT_TRUE(categories);
    Q_EMIT categories->aboutToShow();
    QStringList titles;
    for (QAction *item : categories->actions())
        titles.append(item->isSeparator() ? u"-"_qs : item->text());
    EXPECT_EQ(titles, (QStringList{u"Show All"_qs, u"-"_qs, u"Generic"_qs, u"R&&D"_qs}));
    EXPECT_TRUE(categories->actions().first()->isChecked());
    categories->actions().last()->trigger();
    EXPECT_EQ(names(), QStringList{zoe});
    document()->categoryCommands().synkCategorySubMenu({});
    EXPECT_EQ(popUp->currentText(), u"R&D") << "among new items";

    document()->setSearchText(u"z"_qs);
    EXPECT_EQ(searched(), u"z") << "the field follows the document";
    QTest::mouseClick(control<QPushButton>("showAllButton"), Qt::LeftButton);
    EXPECT_EQ(names(), (QStringList{zoe, boris}));
    EXPECT_EQ(searched(), QString());
    EXPECT_EQ(popUp->currentText(), u"Show All");
    EXPECT_FALSE(isStripShown());
}

TEST_F(BrowsingTest, TheMenuOfManyCategoriesLeadsToThePopUp)
{
    makeTwoContacts();
    for (int count = 0; count < 400; ++count)
        document()->myCategoryArrayController()->addWithName(QString::number(count));
    document()->categoryCommands().synkCategorySubMenu({});
    auto *popUp = control<QComboBox>("myActionPopup");
    popUp->setCurrentIndex(401);
    QMenu *menu = item("myCategorySuperMenuItem")->menu();
    Q_EMIT menu->aboutToShow();
    const QList<QAction *> items = menu->actions();
    ASSERT_EQ(items.size(), 305) << "all, a line, 300, a line, the chosen one, the way to the others";
    EXPECT_EQ(items.at(303)->text(), popUp->itemText(401));
    EXPECT_EQ(items.last()->text(), u"&All 402 Categories\u2026");
    items.last()->trigger();
    EXPECT_TRUE(eventually([&] { return popUp->view()->isVisible(); })) << "the pop-up opens";
    popUp->hidePopup();
    EXPECT_TRUE(popUp->hasFocus());
}

TEST_F(BrowsingTest, TheSmallestWindowHasRoomForAllOfTheToolbar)
{
    makeTwoContacts();
    window()->resize(window()->minimumSize());
    runEvents();
    const auto *toolbar = control<QToolBar>("modernToolbar");
    const auto *field = control<SearchField>("searchField");
    for (const QWidget *shown : std::initializer_list<const QWidget *>{
             toolButton(u"Edit"_qs), control<QComboBox>("myActionPopup"), field})
        EXPECT_TRUE(shown->isVisible());
    EXPECT_LE(field->mapTo(toolbar, field->rect().topRight()).x(), toolbar->width());
    EXPECT_GE(field->width(), field->minimumWidth());
}

} // namespace
