#include "browse/VLCategoryEditFieldDelegate.h"
#include "core/RecordModel.h"
#include "support/Printers.h"
#include "support/ScriptedHost.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

using Objects = Foundation::ArrayController::Objects;
using Record = Foundation::ArrayController::Object;

namespace
{

class CategoryCommandsTest : public testing::Test
{
protected:
    CategoryCommandsTest()
    {
        for (const QString &name : {u"Friends"_qs, u"Work"_qs, u"Home work"_qs})
            categories.addWithName(name);
        forMenu.setContent(categories.content());
    }
    Record category(qint64 id) const { return categories.getCategoryWithUniqueID(id); }
    // Of the category with that id, with a note; not in the list of a document read before.
    Record add(qint64 id, const QString &note = u""_qs)
    {
        const Record record = records.newObject();
        records.assignCategory(category(id), record);
        record->setValue(RecordKey::note, note);
        records.addObject(record);
        return record;
    }
    void showOnly(const QString &title)
    {
        Foundation::ActionSender item;
        item.title = title;
        commands.doSelectCatMenu(item);
    }
    void search(const QString &text)
    {
        host.searched = text;
        records.search({});
    }

    ScriptedHost host;
    ManualQueue queue;
    VLColoredCategoryArrayController categories;
    Foundation::ArrayController forMenu;
    FilteringArrayController records{host, categories};
    CategoryCommands commands{host, records, categories, forMenu};
};

TEST_F(CategoryCommandsTest, TheListIsNarrowedByTheWholeNameOfACategoryAndByAText)
{
    const Record friendly = add(1, u"tea"_qs);
    const Record colleague = add(2, u"Work and tea"_qs);
    const Record guest = add(3, u"coffee"_qs);
    const Objects teas = {friendly, colleague};
    const std::tuple<const char *, QString, QString, QString, Objects> cases[] = {
        {"no filter", QString(), QString(), u""_qs, {friendly, colleague, guest}},
        {"empty is none", u""_qs, u""_qs, u""_qs, {friendly, colleague, guest}},
        {"case does not count, parts do not do", u"WORK"_qs, u""_qs, u"category \"WORK\""_qs, {colleague}},
        {"a text alone leaves a blank in front", u""_qs, u"TEA"_qs, u" search string \"TEA\""_qs, teas},
        {"names of categories are not searched", u""_qs, u"friend"_qs, u" search string \"friend\""_qs, {}},
        {"both", u"work"_qs, u"%1"_qs, u"category \"work\" and search string \"%1\""_qs, {}},
        {"both, found",
         u"Friends"_qs,
         u"t"_qs,
         u"category \"Friends\" and search string \"t\""_qs,
         {friendly}},
    };
    for (const auto &[rule, category, text, display, shown] : cases) {
        SCOPED_TRACE(rule);
        host.searchInfo.clear();
        records.setCategoryString(category);
        search(text);
        EXPECT_EQ(records.arrangedObjects(), shown);
        EXPECT_EQ(records.selectionIndex(), shown.empty() ? -1 : 0); // The first one found, always.
        EXPECT_EQ(records.usedFilterDisplay(), display);
        EXPECT_EQ(records.filterInAction(), !display.isEmpty());
        EXPECT_EQ(host.searchInfo, (QList<bool>{!display.isEmpty(), !display.isEmpty()}));
    }
}

TEST_F(CategoryCommandsTest, TheFiltersLeaveTheOrderToTheSortDescriptorsAndFollowEveryEdit)
{
    const Record b = add(1, u"b tea"_qs);
    const Record a = add(2, u"a tea"_qs);
    records.setSortDescriptors({{u"categoryPtr.cat_category"_qs, false}, {u"note"_qs}});
    search(u"tea"_qs);
    EXPECT_EQ(records.arrangedObjects(), (Objects{a, b}));
    category(1)->setValue(CategoryKey::cat_category, u"Zoo"_qs); // No record changes with it.
    const Record c = add(1, u"A TEA of mine"_qs);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), (Objects{c, b, a}));
    b->setValue(RecordKey::note, u"water"_qs);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), (Objects{c, a}));
    showOnly(u"zoo"_qs);
    EXPECT_EQ(records.arrangedObjects(), Objects{c});
}

TEST_F(CategoryCommandsTest, TheSlotLetsOneRecordThroughOnce)
{
    const Record shown = add(1);
    const Record hidden = add(2);
    records.setCategoryString(u"friends"_qs);
    records.setNewObj(hidden);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), (Objects{shown, hidden}));
    EXPECT_EQ(records.newObj(), nullptr);
    records.rearrangeObjects();
    EXPECT_EQ(records.arrangedObjects(), Objects{shown});
    records.setNewObj(hidden);
    records.setCategoryString(QString());
    records.rearrangeObjects(); // A filter that is off empties it, too.
    EXPECT_EQ(records.newObj(), nullptr);
}

TEST_F(CategoryCommandsTest, ThePopUpKeepsItsFirstTwoItemsAndDoesNotChooseTwice)
{
    categories.getLastCategory()->setValue(CategoryKey::cat_category, {});
    ScriptedPopUpMenu &popUp = host.window.popUp;
    for (int times = 0; times < 2; ++times) {
        commands.synkCategorySubMenu({});
        EXPECT_EQ(popUp.titles.join(u'|'), u"Category|Show All|Friends|Work|");
        EXPECT_EQ(popUp.actions.last(), u"doSelectCatMenu");
    }
    popUp.selected = u"Work"_qs;
    showOnly(u"Work"_qs);
    EXPECT_EQ(host.categoryString, u"as it was"); // The document's own note stays.
    commands.showAllAndResetFilter({});
    EXPECT_EQ(host.categoryString, u"");
    EXPECT_EQ(popUp.selected, u"Show All");
    commands.showAllCategory({});
    EXPECT_EQ(popUp.selections, 1); // It is selected already.
}

TEST_F(CategoryCommandsTest, WhatIsRedrawnAndWhatMarksTheDocument)
{
    const auto redrawn = [this] { return std::exchange(host.window.redrawn, {}).join(u' '); };
    const auto marks = [this] {
        const QList<int> changes = std::exchange(host.changes, {});
        EXPECT_EQ(changes, QList<int>(changes.size(), 0)) << "each is a change done";
        return changes.size();
    };
    VLCategoryEditFieldDelegate(host, commands).controlTextDidChange();
    EXPECT_EQ(redrawn(), u"categoryTable category categoryTable");
    commands.colorChanged({});
    EXPECT_EQ(marks(), 2);
    commands.addNewCategory({});
    EXPECT_EQ(marks(), 1);
    EXPECT_EQ(host.window.categoryScrolls, 0) << "not before the table has its row";
    queue.drain();
    EXPECT_EQ(host.window.categoryScrolls, 1);
    const Record record = add(4);
    commands.removeCategory({}); // The new one is selected.
    EXPECT_EQ(marks(), 0) << "removing marks nothing";
    EXPECT_EQ(record->valueForKeyPath(u"categoryPtr.cat_category").stringValue(), u"Generic");

    redrawn();
    Foundation::ActionSender popUp;
    popUp.indexOfSelectedItem = 0;
    commands.categoryWasSet(popUp);
    EXPECT_EQ(redrawn(), u"category categoryViews");
    EXPECT_EQ(marks(), 1);
    popUp.indexOfSelectedItem = 7; // No such item.
    commands.categoryWasSet(popUp);
    EXPECT_EQ(record->value(RecordKey::categoryPtr).dictionary(), category(1));
}

} // namespace
