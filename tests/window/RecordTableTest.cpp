#include "window/list/RecordTable.h"

#include "core/RecordModel.h"
#include "window/accessibility/AccessibleFactory.h"
#include "window/list/MyTableDelegate.h"
#include "window/list/RecordTableModel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

using namespace Foundation;

namespace
{

Ref<Dictionary> newPerson(const QString &firstName, const Value &lastName = {})
{
    const auto record = Dictionary::create();
    record->setValue(RecordKey::firstName, firstName);
    record->setValue(RecordKey::lastName, lastName);
    return record;
}

} // namespace

class RecordTableTest : public testing::Test
{
protected:
    RecordTableTest()
    {
        const auto content = Array::create();
        for (int i = 0; i < 5; ++i)
            content->values.push_back(newPerson(QString::number(i), u"<i>Acme</i>"_qs));
        records.setContent(content);
        table.setRecords(&records);
        table.setItemDelegateForColumn(RecordTableModel::CategoryColumn, &delegate);
        for (CategoryView *view : {&categoryView, &categoryView2})
            view->setMyArrayController(&records);
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

    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < table.model()->rowCount(); ++row)
            names.append(table.model()->index(row, RecordTableModel::NameColumn).data().toString());
        return names;
    }
    void clickHead(int column)
    {
        const QHeaderView *header = table.horizontalHeader();
        const QPoint place(header->sectionViewportPosition(column) + 20, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    }

    ArrayController records;
    CategoryView categoryView;
    CategoryView categoryView2;
    RecordTable table;
    MyTableDelegate delegate{&records, &categoryView, &categoryView2, &table};
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
    records.arrangedObjects()[2]->setValue(RecordKey::firstName, u"new"_qs);
    EXPECT_EQ(table.model()->index(2, RecordTableModel::NameColumn).data().toString(), u"new <i>Acme</i>"_qs);
}

TEST_F(RecordTableTest, CategoryIsPaintedInItsColours)
{
    const auto category = newCategoryRecord(u"      "_qs, 1);
    category->value(CategoryKey::cat_backColor).dictionary()->setValue(QStringView(u"g"), Value(0.25));
    const QRgb back = qRgb(191, 64, 191);
    records.arrangedObjects()[1]->setValue(RecordKey::categoryPtr, category);
    const QRgb base = table.palette().color(QPalette::Base).rgb();
    EXPECT_EQ(colorInCategoryCell(1), back);
    EXPECT_EQ(colorInCategoryCell(2), base) << "no category, no label";
    records.setSelectionIndex(1);
    EXPECT_EQ(colorInCategoryCell(1), back) << "the selection does not cover it";
    const auto *model = static_cast<const RecordTableModel *>(table.model());
    EXPECT_EQ(model->columnWithIdentifier(u"category"_qs), 0);
    EXPECT_EQ(model->columnWithIdentifier(u"name"_qs), 1);
    EXPECT_EQ(model->columnWithIdentifier(u"other"_qs), -1);
}

TEST_F(RecordTableTest, AHeadPutsTheListInItsOrderAndTurnsItRound)
{
    const auto work = newCategoryRecord(u"Work"_qs, 1);
    const auto family = newCategoryRecord(u"Family"_qs, 2);
    const auto content = Array::create();
    for (const QString &name : {u"c"_qs, u"A"_qs, u"b"_qs}) {
        const auto person = newPerson(name);
        person->setValue(RecordKey::categoryPtr, name == u"A" ? family : work);
        content->values.push_back(person);
    }
    records.setContent(content);
    records.setSelectionIndex(1);
    QSignalSpy arrangements(&records, &ArrayController::arrangedObjectsChanged);
    clickHead(RecordTableModel::NameColumn);
    EXPECT_EQ(arrangements.size(), 1);
    EXPECT_EQ(names(), (QStringList{u"A"_qs, u"b"_qs, u"c"_qs}));
    EXPECT_EQ(selectedRows(), QList<int>{0}) << "the contact stays selected, and nothing else is";
    clickHead(RecordTableModel::NameColumn);
    EXPECT_EQ(names(), (QStringList{u"c"_qs, u"b"_qs, u"A"_qs}));
    clickHead(RecordTableModel::CategoryColumn);
    EXPECT_EQ(names(), (QStringList{u"A"_qs, u"b"_qs, u"c"_qs}));
    clickHead(RecordTableModel::CategoryColumn);
    EXPECT_EQ(names(), (QStringList{u"b"_qs, u"c"_qs, u"A"_qs}));
}

TEST_F(RecordTableTest, LettersGoToTheNextNameAndReturnEdits)
{
    const auto content = Array::create();
    for (const QString &name : {u"Ada"_qs, u"Zoë"_qs, u"Zita"_qs})
        content->values.push_back(newPerson(name));
    records.setContent(content);
    table.selectionModel()->setCurrentIndex(table.model()->index(0, RecordTableModel::CategoryColumn),
                                            QItemSelectionModel::NoUpdate);
    QTest::keyClicks(&table, u"zi"_qs);
    EXPECT_EQ(selectedRows(), QList<int>{2});
    QSignalSpy edits(&table, &RecordTable::editRequested);
    QTest::keyClick(&table, Qt::Key_Return);
    const QRect cell = table.visualRect(table.model()->index(1, RecordTableModel::NameColumn));
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(edits.size(), 2);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, {cell.x(), table.viewport()->height() - 4});
    EXPECT_EQ(edits.size(), 2) << "no contact there";
}

TEST_F(RecordTableTest, AccessibleCellsDieWithTheirTable)
{
    installAccessibility();
    QList<QAccessible::Id> cells;
    {
        RecordTable shortLived;
        shortLived.setRecords(&records);
        auto *accessible = QAccessible::queryAccessibleInterface(&shortLived)->tableInterface();
        for (const int row : {0, -1, 99})
            cells.append(QAccessible::uniqueId(accessible->cellAt(row, 0)));
    }
    for (const QAccessible::Id cell : cells)
        EXPECT_EQ(QAccessible::accessibleInterface(cell), nullptr) << "the bridge would use what has gone";
}
