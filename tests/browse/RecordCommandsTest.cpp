#include "browse/RecordCommands.h"

#include "core/RecordModel.h"
#include "support/Printers.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

using Foundation::Alert;
using Foundation::Value;
using Record = RecordCommands::Record;

namespace
{

class Host : public BrowseHost
{
public:
    bool isDecrypted() const override { return decrypted; }
    void updateChangeCount(int change) override { changes.append(change); }
    Foundation::UndoManager &undoManager() override { return undo; }
    void beginAlert(const Alert &alert, Foundation::AlertAnswer answered) override
    {
        question = alert;
        answer = std::move(answered);
    }
    void switchToEditMode() override { ++editModes; }
    void scrollRowToVisible(qsizetype row) override { scrolledTo = row; }
    void redrawColumn(const QString &identifier) override { redrawn.append(identifier); }

    bool decrypted = true;
    QList<int> changes;
    Foundation::UndoManager undo;
    Alert question;
    Foundation::AlertAnswer answer;
    int editModes = 0;
    qsizetype scrolledTo = -2;
    QStringList redrawn;
};

class RecordCommandsTest : public testing::Test
{
protected:
    RecordCommandsTest()
    {
        friends = categories.addWithName(QStringLiteral("Friends"));
        work = categories.addWithName(QStringLiteral("Work"));
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

    Host host;
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
    EXPECT_EQ(first->value(RecordKey::note), Value(QStringLiteral("")));
    EXPECT_EQ(first->value(RecordKey::usageCount), Value(qint64(0)));
    EXPECT_EQ(first->value(RecordKey::creationDate), Value::date(30));
    EXPECT_EQ(categoryOf(first), work); // Without a selection: the last category.
    EXPECT_TRUE(records.assignCategory(friends, first));
    EXPECT_EQ(categoryOf(add()), friends);
    EXPECT_EQ(uses(friends), 2);
    EXPECT_EQ(uses(work), 0);
    EXPECT_EQ(host.editModes, 2);
    EXPECT_EQ(host.scrolledTo, 1);
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
    record->setValue(RecordKey::note, QStringLiteral("typed"));
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

TEST_F(RecordCommandsTest, BothDeletionsAskInTheirOwnWordsAndDeleteExactlyOne)
{
    const struct
    {
        void (RecordCommands::*action)(const Foundation::ActionSender &);
        QString message, informativeText;
        QStringList buttons;
        int confirming;
        std::size_t deleted; // of three selected records
    } cases[] = {
        {&RecordCommands::deleteRow,
         QStringLiteral("Delete Selected Row?"),
         QStringLiteral("The selected row will be removed from the document"),
         {QStringLiteral("Delete"), QStringLiteral("Cancel")},
         1000,
         2},
        {&RecordCommands::deleteRows,
         QStringLiteral("Delete the selected contact"),
         QStringLiteral("Are you sure to delete the selected contact?"),
         {QStringLiteral("Cancel"), QStringLiteral("Delete Contact")},
         1001,
         0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.message.toStdString());
        records.setContent(nullptr);
        const Record added[] = {add(), add(), add()};
        records.setSelectionIndexes({0, 1, 2});
        host.changes.clear();
        (commands.*c.action)({});
        EXPECT_EQ(host.question.message, c.message);
        EXPECT_EQ(host.question.informativeText, c.informativeText);
        EXPECT_EQ(host.question.buttons, c.buttons);
        EXPECT_EQ(host.question.style, Alert::Style::Warning);
        host.answer(c.confirming == 1000 ? 1001 : 1000);
        EXPECT_EQ(records.content()->count(), 3);
        EXPECT_TRUE(host.changes.isEmpty());
        (commands.*c.action)({});
        host.answer(c.confirming);
        EXPECT_EQ(records.content()->count(), 2);
        EXPECT_LT(records.arrangedIndexOf(added[c.deleted]), 0);
        host.undo.undo();
        EXPECT_GE(records.arrangedIndexOf(added[c.deleted]), 0);
        EXPECT_EQ(host.changes, (QList<int>{0, 0}));
    }
}

TEST_F(RecordCommandsTest, DeleteRowsWithoutASelectionAsksNothing)
{
    commands.deleteRows({});
    EXPECT_TRUE(host.question.message.isEmpty());
}

TEST_F(RecordCommandsTest, AnAssignmentMovesCountsOnlyBetweenListedCategories)
{
    const Record record = add();
    EXPECT_FALSE(records.assignCategory(work, record));
    EXPECT_EQ(uses(work), 1);
    categories.removeObject(work);
    EXPECT_TRUE(records.assignCategory(friends, record));
    EXPECT_EQ(uses(work), 1); // No longer in the list: not counted down.
    EXPECT_EQ(uses(friends), 1);

    Foundation::ActionSender popUp;
    popUp.indexOfSelectedItem = 0;
    commands.categoryWasSet(popUp);
    EXPECT_EQ(uses(friends), 1);
    popUp.indexOfSelectedItem = 7;
    commands.categoryWasSet(popUp);
    EXPECT_EQ(categoryOf(record), friends);
    EXPECT_EQ(host.redrawn, QStringList{QStringLiteral("category")});
}

TEST_F(RecordCommandsTest, OnlyTypingInANameFieldRedrawsTheName)
{
    commands.controlTextDidChange(0);
    EXPECT_TRUE(host.redrawn.isEmpty());
    commands.controlTextDidChange(1);
    commands.isACompanySwitched({});
    EXPECT_EQ(host.redrawn, (QStringList{QStringLiteral("name"), QStringLiteral("name")}));
}

} // namespace
