#include "support/DocumentFixture.h"

#include <algorithm>
#include <map>
#include <random>

using Foundation::ActionSender;
using Object = Foundation::ArrayController::Object;
using Objects = Foundation::ArrayController::Objects;

namespace
{

bool contains(const Objects &objects, const Object &object)
{
    return std::find(objects.begin(), objects.end(), object) != objects.end();
}

struct ByAddress
{
    bool operator()(const Object &a, const Object &b) const { return std::less<>()(a.get(), b.get()); }
};

qint64 idOf(const Object &category)
{
    return category->value(CategoryKey::cat_uniqueID).longValue();
}

// What a careful clerk would note down beside the document: the records, the categories and their counts
// after each command, told in the plainest way.
struct Account
{
    struct Entry
    {
        Object category;
        qint64 storedId;
        QString note;
    };
    enum class Command { Add, Duplicate, Delete };
    struct Step
    {
        Command command;
        Object record;
    };

    void arrange()
    {
        shown.clear();
        for (const Object &record : content) {
            const Entry &entry = entries.at(record);
            const QString name = entry.category->value(CategoryKey::cat_category).stringValue();
            if ((filter.isEmpty() || name.toLower() == filter.toLower()) &&
                (searched.isEmpty() || entry.note.contains(searched)))
                shown.push_back(record);
        }
    }
    void count(const Object &category, int amount) { uses[category] += amount; }
    // Counts by a stored id, which is that of no category in a record that was made here.
    void countById(qint64 id, int amount)
    {
        const auto found = std::find_if(categories.begin(), categories.end(),
                                        [id](const Object &category) { return id && idOf(category) == id; });
        if (found != categories.end())
            count(*found, amount);
    }
    // A filter that hides the record keeps it.
    void removeShown(const Object &record)
    {
        if (!contains(shown, record)) {
            ++removalsOfHidden;
            return;
        }
        count(entries.at(record).category, -1);
        std::erase(content, record);
    }
    void did(Command command, const Object &record)
    {
        undo.push_back({command, record});
        redo.clear();
    }

    Objects content;
    Objects shown; // as arranged last
    Objects categories;
    std::map<Object, Entry, ByAddress> entries; // of every record that ever was
    std::map<Object, int, ByAddress> uses;      // of every category that ever was
    std::vector<Step> undo, redo;
    QString filter, searched;
    int removalsOfHidden = 0;
};

class RecordBookkeepingTest : public DocumentFixture, public testing::WithParamInterface<unsigned>
{
public:
    RecordBookkeepingTest()
        : random(GetParam())
    {
        newProtectedDocument();
        takeCategories();
    }

    std::size_t below(std::size_t limit) { return std::size_t(random()) % limit; }
    FilteringArrayController &records() { return *document->myArrayController(); }
    VLColoredCategoryArrayController &categories() { return *document->myCategoryArrayController(); }
    RecordCommands &commands() { return document->recordCommands(); }

    void takeCategories()
    {
        account.categories = categories().contentObjects();
        for (const Object &category : account.categories)
            account.uses.try_emplace(category, 0);
    }
    // Up to three rows, none where the list allows it.
    void select()
    {
        std::vector<std::size_t> rows;
        for (std::size_t n = below(4); n > 0 && !account.shown.empty(); --n)
            rows.push_back(below(account.shown.size()));
        records().setSelectionIndexes(rows);
        selected = records().selectedObjects();
    }
    // What the document now holds behind what was there.
    Object takeNewRecord()
    {
        for (const Object &record : records().contentObjects()) {
            if (!account.entries.contains(record))
                return record;
        }
        return nullptr;
    }

    void add()
    {
        Object category = account.categories.empty() ? nullptr : account.categories.back();
        if (category && !selected.empty())
            category = account.entries.at(selected.back()).category;
        commands().addRow({});
        const Object made = takeNewRecord();
        ASSERT_EQ(made == nullptr, category == nullptr);
        if (!made)
            return;
        account.entries[made] = {category, 0, u""_qs};
        account.content.push_back(made);
        account.count(category, 1);
        account.did(Account::Command::Add, made);
    }
    void duplicate()
    {
        commands().duplicateRow({});
        const Object made = takeNewRecord();
        ASSERT_EQ(made == nullptr, selected.empty());
        if (!made)
            return;
        account.entries[made] = account.entries.at(selected.front());
        putBehindSelection(made);
        account.did(Account::Command::Duplicate, made);
    }
    // In front of what is shown behind the first selected record.
    void putBehindSelection(const Object &record)
    {
        const auto place = selected.empty()
                               ? account.shown.begin()
                               : std::find(account.shown.begin(), account.shown.end(), selected.front()) + 1;
        account.content.insert(place == account.shown.end()
                                   ? account.content.end()
                                   : std::find(account.content.begin(), account.content.end(), *place),
                               record);
    }
    void deleteOne()
    {
        const bool takesLast = below(2) == 0;
        if (takesLast)
            commands().deleteRow({});
        else
            commands().deleteRows({});
        ASSERT_EQ(window->hasAlert(), takesLast || !selected.empty());
        if (!window->hasAlert())
            return;
        window->answer(takesLast ? 1000 : 1001);
        if (selected.empty())
            return;
        const Object record = takesLast ? selected.back() : selected.front();
        account.removeShown(record);
        account.did(Account::Command::Delete, record);
    }
    void removeSelected()
    {
        records().remove({});
        window->answer(1000);
        if (!selected.empty())
            account.countById(account.entries.at(selected.front()).storedId, -1);
        for (const Object &record : selected)
            std::erase(account.content, record);
    }
    void chooseCategory()
    {
        if (account.categories.empty())
            return;
        ActionSender popUp;
        popUp.indexOfSelectedItem = qsizetype(below(account.categories.size()));
        document->categoryCommands().categoryWasSet(popUp);
        const Object &category = account.categories[std::size_t(popUp.indexOfSelectedItem)];
        if (selected.empty() || account.entries.at(selected.front()).category == category)
            return;
        Object &former = account.entries.at(selected.front()).category;
        if (contains(account.categories, former))
            account.count(former, -1);
        account.count(category, 1);
        former = category;
    }
    void type()
    {
        static const QStringList words = {u"tea"_qs, u"tea and rum"_qs, u"rum"_qs, u""_qs};
        const QString note = words[qsizetype(below(std::size_t(words.size())))];
        typeNote(note);
        for (const Object &record : selected)
            account.entries.at(record).note = note;
    }
    void changeCategories()
    {
        const std::size_t row = account.categories.empty() ? 0 : below(account.categories.size());
        categories().setSelectionIndex(qsizetype(row));
        switch (below(4)) {
        case 0:
            document->categoryCommands().removeCategory({});
            break;
        case 1: // Names may be taken twice.
            if (!account.categories.empty())
                account.categories[row]->setValue(CategoryKey::cat_category, below(2) ? u"A"_qs : u"b"_qs);
            break;
        default:
            if (account.categories.size() < 6)
                document->categoryCommands().addNewCategory({});
        }
        queue.drain();
        takeCategories();
    }
    void filter()
    {
        switch (below(5)) {
        case 0: {
            ActionSender item;
            item.title = below(2) ? u"a"_qs : u"generic"_qs;
            document->categoryCommands().doSelectCatMenu(item);
            account.filter = item.title;
            break;
        }
        case 1:
            account.searched = below(2) ? u"tea"_qs : u"rum"_qs;
            document->setSearchText(account.searched);
            records().search({});
            break;
        default:
            document->categoryCommands().showAllAndResetFilter({});
            account.filter.clear();
            account.searched.clear();
        }
        account.arrange();
    }
    void undo()
    {
        const bool canUndo = !account.undo.empty();
        document->undoManager().undo();
        if (!canUndo)
            return;
        const auto [command, record] = account.undo.back();
        account.undo.pop_back();
        account.redo.push_back({command, record});
        if (command == Account::Command::Add)
            account.countById(account.entries.at(record).storedId, -1);
        if (command != Account::Command::Delete)
            account.removeShown(record);
        else if (!contains(account.content, record))
            account.content.push_back(record);
    }
    void redo()
    {
        const bool canRedo = !account.redo.empty();
        document->undoManager().redo();
        if (!canRedo)
            return;
        const auto [command, record] = account.redo.back();
        account.redo.pop_back();
        account.undo.push_back({command, record});
        if (command == Account::Command::Delete)
            account.removeShown(record);
        else if (contains(account.content, record))
            return;
        else if (command == Account::Command::Add)
            account.content.push_back(record);
        else
            putBehindSelection(record);
    }
    // All objects are new then, and the counts are exact. What can be undone means the new ones, and what was
    // deleted has its category among them.
    void lockAndUnlock()
    {
        const auto file = document->dataOfType({});
        Foundation::Failure<Foundation::DocumentError> error{};
        ASSERT_TRUE(file && document->readFromData(*file, {}, &error));
        submit(password);
        ASSERT_TRUE(document->isDecrypted());
        queue.drain();
        const Objects before = account.content;
        takeCategories();
        account.content = records().contentObjects();
        ASSERT_EQ(account.content.size(), before.size());
        const auto successorOf = [this](const Object &former) {
            const auto found =
                std::find_if(account.categories.begin(), account.categories.end(),
                             [&former](const Object &category) { return idOf(category) == idOf(former); });
            return found == account.categories.end() ? account.categories.front() : *found;
        };
        for (auto *stack : {&account.undo, &account.redo}) {
            for (Account::Step &step : *stack) {
                const auto place = std::find(before.begin(), before.end(), step.record) - before.begin();
                Object &category = account.entries.at(step.record).category;
                if (std::size_t(place) < before.size())
                    step.record = account.content[std::size_t(place)];
                else if (!contains(account.categories, category))
                    category = successorOf(category);
            }
        }
        for (std::size_t i = 0; i < before.size(); ++i) {
            const Account::Entry &saved = account.entries.at(before[i]);
            const Object category = successorOf(saved.category);
            account.entries[account.content[i]] = {category, idOf(saved.category), saved.note};
            account.count(category, 1);
        }
    }

    void compare()
    {
        ASSERT_EQ(records().contentObjects(), account.content);
        ASSERT_EQ(records().arrangedObjects(), account.shown);
        for (const auto &[record, entry] : account.entries) {
            ASSERT_EQ(record->value(RecordKey::note).stringValue(), entry.note);
            ASSERT_EQ(record->value(RecordKey::lastName).stringValue(), u"Last Name");
            ASSERT_EQ(record->value(RecordKey::cat_uniqueID).longValue(), entry.storedId);
            ASSERT_EQ(record->value(RecordKey::categoryPtr).dictionary(), entry.category);
        }
        for (const auto &[category, uses] : account.uses)
            ASSERT_EQ(category->value(CategoryKey::cat_howManyUsingThis).intValue(), uses);
        ASSERT_EQ(document->undoManager().canUndo(), !account.undo.empty());
        ASSERT_EQ(document->undoManager().canRedo(), !account.redo.empty());
    }

    std::mt19937 random;
    Account account;
    Objects selected;
};

TEST_P(RecordBookkeepingTest, AgreesWithThePlainAccountThroughLongWalks)
{
    using Step = void (RecordBookkeepingTest::*)();
    const struct
    {
        const char *name;
        Step step;
        bool rearranges;
        int weight;
    } steps[] = {
        {"add", &RecordBookkeepingTest::add, true, 5},
        {"duplicate", &RecordBookkeepingTest::duplicate, true, 2},
        {"delete", &RecordBookkeepingTest::deleteOne, true, 3},
        {"remove", &RecordBookkeepingTest::removeSelected, true, 1},
        {"choose", &RecordBookkeepingTest::chooseCategory, false, 4},
        {"type", &RecordBookkeepingTest::type, false, 5},
        {"categories", &RecordBookkeepingTest::changeCategories, false, 2},
        {"filter", &RecordBookkeepingTest::filter, true, 4},
        {"undo", &RecordBookkeepingTest::undo, true, 6},
        {"redo", &RecordBookkeepingTest::redo, true, 4},
        {"lock", &RecordBookkeepingTest::lockAndUnlock, true, 1},
    };
    std::vector<std::size_t> lots;
    for (std::size_t i = 0; i < std::size(steps); ++i)
        lots.insert(lots.end(), std::size_t(steps[i].weight), i);
    std::string walk;
    for (int n = 0; n < 1500; ++n) {
        const auto &[name, step, rearranges, weight] = steps[lots[below(lots.size())]];
        walk += std::string(name) + ' ';
        SCOPED_TRACE(walk.substr(walk.size() < 200 ? 0 : walk.size() - 200));
        select();
        (this->*step)();
        ASSERT_FALSE(HasFatalFailure());
        if (rearranges) {
            records().rearrangeObjects();
            account.arrange();
        }
        compare();
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_GT(account.removalsOfHidden, 0) << "the walk never came by the odd place";
}

INSTANTIATE_TEST_SUITE_P(Walks, RecordBookkeepingTest, testing::Values(1U, 2U, 3U));

} // namespace
