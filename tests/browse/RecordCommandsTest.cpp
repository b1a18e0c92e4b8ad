#include "browse/RecordCommands.h"

#include "core/RecordModel.h"
#include "support/Printers.h"
#include "support/ScriptedHost.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

using namespace Foundation;
using Record = RecordCommands::Record;

namespace
{

const AlertButton cancel{u"Cancel"_qs, AlertButton::Cancel};

class RecordCommandsTest : public testing::Test
{
protected:
    RecordCommandsTest() { categories.addWithName(u"Work"_qs); }

    Record add()
    {
        commands.addRow({});
        return records.selectedObjects().back();
    }

    ScriptedHost host;
    VLColoredCategoryArrayController categories;
    FilteringArrayController records{host, categories};
    RecordCommands commands{host, records, categories};
};

// Which records come and go, and the counts of categories, is told by long walks of whole documents.
TEST_F(RecordCommandsTest, ANewRecordAndItsCopyAreDatedAndShownInTheirModes)
{
    ManualClock clock(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 30), Qt::UTC));
    const Record first = add();
    EXPECT_EQ(first->value(RecordKey::creationDate), Value::date(30));
    EXPECT_EQ(host.editModes, 1);
    EXPECT_EQ(host.window.scrolledTo, 0);
    clock.moment = clock.moment.addSecs(5);
    commands.duplicateRow({});
    const Record copy = records.selectedObjects().back();
    EXPECT_EQ(copy->value(RecordKey::creationDate), Value::date(35));
    EXPECT_FALSE(copy->contains(RecordKey::usageCount));
    EXPECT_EQ(host.editModes, 1) << "a copy stays in the mode at hand";
    host.undo.undo();
    EXPECT_EQ(host.undo.redoActionName(), u"Duplicate Record");
    EXPECT_EQ(host.changes, (QList<int>{0, 0, 0})) << "undoing is a change done, too";
    host.decrypted = false;
    commands.addRow({});
    commands.duplicateRow({});
    EXPECT_EQ(records.content()->count(), 1) << "nothing while locked";
    // A copy was counted out and never in, and undoing an add counts by the stored id, too.
    first->setValue(RecordKey::cat_uniqueID, Value(qint64(1)));
    host.undo.undo();
    EXPECT_EQ(first->valueForKeyPath(u"categoryPtr.cat_howManyUsingThis").intValue(), -2);
}

TEST_F(RecordCommandsTest, ThreeDeletionsAskInTheirOwnWordsAndTakeTheirOwnRecords)
{
    const Alert lastRow{u"Delete Selected Row?"_qs,
                        u"The selected row will be removed from the document"_qs,
                        {{u"Delete"_qs}, cancel}};
    const Alert firstContact{u"Delete the selected contact"_qs,
                             u"Are you sure to delete the selected contact?"_qs,
                             {cancel, {u"Delete Contact"_qs}}};
    const Alert all{u"Delete selected contact?"_qs, QString(), {{u"Delete"_qs}, cancel}};
    const struct
    {
        std::function<void()> action;
        Alert question;
        int confirming;
        QList<int> deleted; // of three selected records
        bool canBeUndone;
    } cases[] = {
        {[this] { commands.deleteRow({}); }, lastRow, 1000, {2}, true},
        {[this] { commands.deleteRows({}); }, firstContact, 1001, {0}, true},
        {[this] { records.remove({}); }, all, 1000, {0, 1, 2}, false},
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
        EXPECT_EQ(host.changes, QList<int>(c.canBeUndone ? 2 : 1, 0)) << "undoing is a change done, too";
    }
}

TEST_F(RecordCommandsTest, APasswordIsAskedForBehindItsOwnQuestionAndNamesAreRedrawn)
{
    ManualQueue queue;
    commands.askToInsertPasswordBeforeAddingData({});
    EXPECT_EQ(host.window.alert().message, u"A password must be defined before adding data");
    EXPECT_EQ(host.window.alert().buttons, (QList<Foundation::AlertButton>{{u"Define Password"_qs}, cancel}));
    host.window.answer(1000);
    EXPECT_EQ(host.passwordsAsked, 0);
    queue.drain();
    EXPECT_EQ(host.passwordsAsked, 1);
    EXPECT_FALSE(commands.deleteRowShouldBeEnabled({}));
    add();
    EXPECT_TRUE(commands.deleteRowShouldBeEnabled({}));

    host.window.redrawn.clear();
    commands.controlTextDidChange(0);
    commands.controlTextDidChange(1);
    commands.isACompanySwitched({});
    EXPECT_EQ(host.window.redrawn, (QStringList{u"name"_qs, u"name"_qs})) << "not by typing elsewhere";
}

} // namespace
