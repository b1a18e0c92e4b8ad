#include "browse/RecordCommands.h"

#include "core/RecordModel.h"
#include "support/Printers.h"
#include "support/ScriptedHost.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

using Foundation::Alert;
using Foundation::Value;
using Record = RecordCommands::Record;

namespace
{

class RecordCommandsTest : public testing::Test
{
protected:
    RecordCommandsTest()
    {
        friends = categories.addWithName(u"Friends"_qs);
        work = categories.addWithName(u"Work"_qs);
    }

    static qint32 uses(const Record &category)
    {
        return category->value(CategoryKey::cat_howManyUsingThis).intValue();
    }
    static Record categoryOf(const Record &record)
    {
        return record->value(RecordKey::categoryPtr).dictionary();
    }
    Record add()
    {
        commands.addRow({});
        return records.selectedObjects().back();
    }

    ScriptedHost host;
    Foundation::ArrayController forMenu;
    VLColoredCategoryArrayController categories;
    FilteringArrayController records{host, categories};
    RecordCommands commands{host, records, categories};
    Record friends, work;
};

TEST_F(RecordCommandsTest, ANewRecordHasItsNineteenKeysInTheCategoryOfTheSelection)
{
    const ManualClock clock(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 30), Qt::UTC));
    const Record first = add();
    EXPECT_EQ(first->count(), 19);
    EXPECT_EQ(first->value(RecordKey::firstName).stringValue(), u"First Name");
    EXPECT_EQ(first->value(RecordKey::note), Value(u""_qs));
    EXPECT_EQ(first->value(RecordKey::usageCount), Value(qint64(0)));
    EXPECT_EQ(first->value(RecordKey::creationDate), Value::date(30));
    EXPECT_EQ(categoryOf(first), work); // Without a selection: the last category.
    EXPECT_TRUE(records.assignCategory(friends, first));
    EXPECT_EQ(categoryOf(add()), friends);
    EXPECT_EQ(uses(friends), 2);
    EXPECT_EQ(uses(work), 0);
    EXPECT_EQ(host.editModes, 2);
    EXPECT_EQ(host.window.scrolledTo, 1);
    EXPECT_EQ(host.changes, (QList<int>{0, 0}));
}

TEST_F(RecordCommandsTest, NothingIsAddedWhileLockedOrWithoutACategory)
{
    host.decrypted = false;
    commands.addRow({});
    host.decrypted = true;
    categories.setContent(nullptr);
    commands.addRow({});
    EXPECT_EQ(records.content()->count(), 0);
    EXPECT_TRUE(host.changes.isEmpty());
    EXPECT_FALSE(host.undo.canUndo());
}

TEST_F(RecordCommandsTest, UndoAndRedoOfAnAddBringBackTheSameObjectAndDriftTheCount)
{
    const Record record = add();
    record->setValue(RecordKey::note, u"typed"_qs);
    EXPECT_EQ(uses(work), 1);
    host.undo.undo();
    EXPECT_EQ(records.content()->count(), 0);
    EXPECT_EQ(uses(work), 0);
    EXPECT_EQ(host.undo.redoActionName(), u"Add Record");
    host.undo.redo();
    ASSERT_EQ(records.content()->count(), 1);
    EXPECT_EQ(records.arrangedObjects().front(), record);
    EXPECT_EQ(record->value(RecordKey::note).stringValue(), u"typed");
    EXPECT_EQ(uses(work), 0); // One below the truth until the next decryption: a redo counts nothing.
    EXPECT_EQ(host.editModes, 2);
    EXPECT_EQ(host.changes, (QList<int>{0, 0, 0})); // Undoing is a change done, too.

    // A record that came from a file is counted out twice: by its stored id and by its reference.
    record->setValue(RecordKey::cat_uniqueID, Value(qint64(1)));
    host.undo.undo();
    EXPECT_EQ(uses(friends), -1);
    EXPECT_EQ(uses(work), -1);
}

TEST_F(RecordCommandsTest, ThreeDeletionsAskInTheirOwnWordsAndTakeTheirOwnRecords)
{
    const struct
    {
        std::function<void()> action;
        Alert question;
        int confirming;
        QList<int> deleted; // of three selected records
        bool canBeUndone;
    } cases[] = {
        {[this] { commands.deleteRow({}); },
         {u"Delete Selected Row?"_qs,
          u"The selected row will be removed from the document"_qs,
          {u"Delete"_qs, u"Cancel"_qs}},
         1000,
         {2},
         true},
        {[this] { commands.deleteRows({}); },
         {u"Delete the selected contact"_qs,
          u"Are you sure to delete the selected contact?"_qs,
          {u"Cancel"_qs, u"Delete Contact"_qs}},
         1001,
         {0},
         true},
        {[this] { records.remove({}); },
         {u"Delete selected contact?"_qs, QString(), {u"Delete"_qs, u"Cancel"_qs}},
         1000,
         {0, 1, 2},
         false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.question.message.toStdString());
        records.setContent(nullptr);
        const Record added[] = {add(), add(), add()};
        host.undo.removeAllActions();
        records.setSelectionIndexes({0, 1, 2});
        host.changes.clear();
        c.action();
        EXPECT_EQ(host.window.alert().message, c.question.message);
        EXPECT_EQ(host.window.alert().informativeText, c.question.informativeText);
        EXPECT_EQ(host.window.alert().buttons, c.question.buttons);
        EXPECT_EQ(host.window.alert().style, Alert::Style::Warning);
        host.window.answer(c.confirming == 1000 ? 1001 : 1000);
        EXPECT_EQ(records.content()->count(), 3);
        EXPECT_TRUE(host.changes.isEmpty());
        c.action();
        host.window.answer(c.confirming);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(records.arrangedIndexOf(added[i]) < 0, c.deleted.contains(i)) << i;
        EXPECT_EQ(host.changes, QList<int>{0});
        EXPECT_EQ(host.undo.canUndo(), c.canBeUndone);
        host.undo.undo();
        EXPECT_EQ(records.content()->count(), c.canBeUndone ? 3 : 0);
    }
    records.setContent(nullptr);
    commands.deleteRows({});
    EXPECT_FALSE(host.window.hasAlert()); // Nothing is selected, nothing is asked.
}

TEST_F(RecordCommandsTest, RemovingGoesByTheStoredIdAndNotByTheCategory)
{
    const Record record = add();
    record->setValue(RecordKey::cat_uniqueID, Value(qint64(1))); // It came as a friend.
    EXPECT_EQ(uses(work), 1);
    records.didEndDeleteRecord(1001, {});
    EXPECT_EQ(records.content()->count(), 1);
    records.didEndDeleteRecord(1000, {});
    EXPECT_EQ(records.content()->count(), 0);
    EXPECT_EQ(uses(friends), -1);
    EXPECT_EQ(uses(work), 1);
}

TEST_F(RecordCommandsTest, ADuplicateComesBehindTheFirstSelectedAndCountsNothing)
{
    commands.duplicateRow({});
    EXPECT_FALSE(host.undo.canUndo()); // Without a selection there is nothing to copy.
    const Record first = add();
    const Record last = add();
    records.setSelectionIndexes({0, 1});
    first->setValue(RecordKey::note, u"shared"_qs);
    host.editModes = 0;
    const ManualClock clock(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 30), Qt::UTC));
    host.decrypted = false;
    commands.duplicateRow({});
    EXPECT_EQ(records.content()->count(), 2);
    host.decrypted = true;
    commands.duplicateRow({});
    ASSERT_EQ(records.content()->count(), 3);
    const Record copy = records.arrangedObjects()[1];
    EXPECT_EQ(records.selectedObjects(), Foundation::ArrayController::Objects{copy});
    EXPECT_EQ(records.arrangedObjects()[2], last);
    EXPECT_FALSE(copy->contains(RecordKey::usageCount));
    EXPECT_EQ(copy->value(RecordKey::creationDate), Value::date(30));
    EXPECT_EQ(copy->value(RecordKey::note).stringValue(), u"shared");
    EXPECT_EQ(categoryOf(copy), work);
    EXPECT_EQ(uses(work), 2);
    EXPECT_EQ(host.editModes, 0); // It stays in the mode at hand.
    host.undo.undo();
    EXPECT_EQ(records.content()->count(), 2);
    EXPECT_EQ(uses(work), 1);
    EXPECT_EQ(host.undo.redoActionName(), u"Duplicate Record");
}

TEST_F(RecordCommandsTest, WhatAFilterHidesIsNeitherRemovedNorAddedTwice)
{
    const Record record = add();
    records.setCategoryString(u"friends"_qs);
    records.rearrangeObjects();
    host.undo.undo();
    EXPECT_EQ(records.content()->count(), 1);
    EXPECT_EQ(uses(work), 1);
    host.undo.redo();
    EXPECT_EQ(records.content()->count(), 1);
    EXPECT_EQ(host.window.scrolledTo, -1);
    EXPECT_EQ(host.changes, (QList<int>{0, 0, 0})); // Each is a change done all the same.
}

TEST_F(RecordCommandsTest, APasswordIsAskedForBehindItsOwnQuestion)
{
    ManualQueue queue;
    commands.askToInsertPasswordBeforeAddingData({});
    EXPECT_EQ(host.window.alert().message, u"A password must be defined before adding data");
    EXPECT_EQ(host.window.alert().informativeText,
              u"After defining a password used to protect this document, it will be possible to add data.");
    EXPECT_EQ(host.window.alert().buttons, (QStringList{u"Define Password"_qs, u"Cancel"_qs}));
    EXPECT_EQ(host.window.alert().style, Alert::Style::Informational);
    host.window.answer(1000);
    EXPECT_EQ(host.passwordsAsked, 0);
    queue.drain();
    EXPECT_EQ(host.passwordsAsked, 1);
    EXPECT_FALSE(commands.deleteRowShouldBeEnabled({}));
    add();
    EXPECT_TRUE(commands.deleteRowShouldBeEnabled({}));
}

TEST_F(RecordCommandsTest, OnlyTypingInANameFieldRedrawsTheName)
{
    commands.controlTextDidChange(0);
    EXPECT_TRUE(host.window.redrawn.isEmpty());
    commands.controlTextDidChange(1);
    commands.isACompanySwitched({});
    EXPECT_EQ(host.window.redrawn, (QStringList{u"name"_qs, u"name"_qs}));
}

} // namespace
