#include "window/RecordTable.h"

#include "browse/RecordName.h"
#include "core/RecordModel.h"

#include <gtest/gtest.h>

#include <QTest>

using Foundation::Array;
using Foundation::ArrayController;
using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

namespace
{

Ref<Dictionary> newPerson(const Value &firstName, const Value &lastName, const Value &company = {},
                          bool isCompany = false)
{
    const auto record = Dictionary::create();
    record->setValue(RecordKey::firstName, firstName);
    record->setValue(RecordKey::lastName, lastName);
    record->setValue(RecordKey::company, company);
    record->setValue(RecordKey::isCompany, Value(isCompany));
    return record;
}

const Value none;
const Value blank = QStringLiteral("");
const Value ada = QStringLiteral("Ada");
const Value byron = QStringLiteral("Byron");
const Value acme = QStringLiteral("<i>Acme</i>");

} // namespace

TEST(RecordName, FollowsTheSwitchAndLeavesNoLooseBlank)
{
    const struct
    {
        const char *rule;
        Ref<Dictionary> record;
        QString name;
    } cases[] = {
        {"both names", newPerson(ada, byron, acme), QStringLiteral("Ada Byron")},
        {"no first name, no leading blank", newPerson(none, byron), QStringLiteral("Byron")},
        {"an empty first name as well", newPerson(blank, byron), QStringLiteral("Byron")},
        {"no last name", newPerson(ada, none), QStringLiteral("Ada")},
        {"an empty last name is appended all the same", newPerson(ada, blank), QStringLiteral("Ada ")},
        {"no name at all", newPerson(none, none), QString()},
        {"a company", newPerson(ada, byron, acme, true), QStringLiteral("<i>Acme</i>")},
        {"a company with an empty name shows that", newPerson(ada, byron, blank, true), QStringLiteral("")},
        {"a company without the key falls back", newPerson(ada, byron, none, true),
         QStringLiteral("Ada Byron")},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        EXPECT_EQ(displayedNameOfRecord(*c.record), c.name.isNull() ? QStringLiteral("") : c.name);
    }
}

class RecordTableTest : public testing::Test
{
protected:
    RecordTableTest()
    {
        const auto content = Array::create();
        for (int i = 0; i < 5; ++i)
            content->values.push_back(newPerson(QString::number(i), acme));
        records.setContent(content);
        table.setRecords(&records);
        table.resize(300, 400);
        table.show();
    }

    QList<int> selectedRows() const
    {
        QList<int> rows;
        for (const QModelIndex &index : table.selectionModel()->selectedRows())
            rows.append(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    QRgb colorInCategoryCell(int row)
    {
        const QRect cell = table.visualRect(table.model()->index(row, RecordTableModel::CategoryColumn));
        return table.viewport()->grab().toImage().pixel(cell.left() + 14, cell.center().y());
    }

    ArrayController records;
    RecordTable table;
};

TEST_F(RecordTableTest, SelectionIsTheControllers)
{
    EXPECT_EQ(selectedRows(), QList<int>{0});
    records.setSelectionIndexes({1, 2, 4});
    EXPECT_EQ(selectedRows(), QList<int>({1, 2, 4}));

    QTest::keyClick(&table, Qt::Key_End);
    EXPECT_EQ(records.selectionIndexes(), std::vector<std::size_t>{4});
    QTest::keyClick(&table, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(records.selectionIndexes(), (std::vector<std::size_t>{3, 4}));
    QTest::keyClick(&table, Qt::Key_Home);
    EXPECT_EQ(records.selectionIndexes(), std::vector<std::size_t>{0});
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(records.selectionIndexes().size(), 5U);
}

TEST_F(RecordTableTest, FollowsTheListWithoutLosingTheSelection)
{
    records.setSelectionIndex(3);
    records.removeObject(records.arrangedObjects()[1]);
    EXPECT_EQ(table.model()->rowCount(), 4);
    EXPECT_EQ(selectedRows(), QList<int>{2});
    EXPECT_EQ(table.currentIndex().row(), 2) << "the arrow keys go on from there";
    records.arrangedObjects()[2]->setValue(RecordKey::firstName, QStringLiteral("new"));
    EXPECT_EQ(table.model()->index(2, RecordTableModel::NameColumn).data().toString(),
              QStringLiteral("new <i>Acme</i>"));
}

TEST_F(RecordTableTest, CategoryIsPaintedInItsColours)
{
    const auto category = newCategoryRecord(QStringLiteral("      "), 1);
    category->value(CategoryKey::cat_backColor).dictionary()->setValue(QStringView(u"g"), Value(0.25));
    const QRgb back = qRgb(191, 64, 191);
    records.arrangedObjects()[1]->setValue(RecordKey::categoryPtr, category);
    const QRgb base = table.palette().color(QPalette::Base).rgb();
    EXPECT_EQ(colorInCategoryCell(1), back);
    EXPECT_EQ(colorInCategoryCell(2), base) << "no category, no label";
    records.setSelectionIndex(1);
    EXPECT_EQ(colorInCategoryCell(1), back) << "the selection does not cover it";
    EXPECT_EQ(RecordTableModel::columnWithIdentifier(QStringLiteral("category")), 0);
    EXPECT_EQ(RecordTableModel::columnWithIdentifier(QStringLiteral("name")), 1);
    EXPECT_EQ(RecordTableModel::columnWithIdentifier(QStringLiteral("other")), -1);
}

TEST_F(RecordTableTest, RowsThatAreNotThereAreIgnored)
{
    table.scrollRowToVisible(-1);
    table.scrollRowToVisible(5);
    records.setContent(Array::create());
    table.redrawColumn(QStringLiteral("name"));
    table.redrawColumn(QStringLiteral("nothing"));
    table.scrollRowToVisible(0);
    EXPECT_EQ(table.model()->rowCount(), 0);
    EXPECT_TRUE(records.selectionIndexes().empty());
}
