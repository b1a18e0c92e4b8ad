#include "SampleContacts.h"
#include "browse/CategoryCommands.h"
#include "browse/RecordCommands.h"

#include <benchmark/benchmark.h>

// Measures what a user waits for in the list of a document, without a window: from the action to the arranged
// list, its selection and the signals of both. The argument of every benchmark is the number of records.

namespace
{

using Foundation::ActionSender;

class Host : public BrowseHost
{
public:
    bool isDecrypted() const override { return true; }
    void updateChangeCount(int) override {}
    Foundation::UndoManager &undoManager() override { return undo; }
    void switchToEditMode() override {}
    BrowseWindow *browseWindow() override { return nullptr; }
    void askForDocumentPassword() override {}
    QString searchText() const override { return searched; }
    void setSearchText(const QString &text) override { searched = text; }
    void setCategoryString(const QString &) override {}
    void showSearchInfoView(bool) override {}

    Foundation::UndoManager undo;
    QString searched;
};

// The list of a sample document, by default sorted by last and first name.
struct List
{
    explicit List(qint64 recordCount, bool isSorted = true)
        : document(sampleDocument(int(recordCount)))
    {
        categories.setContent(document.myCategoryArray);
        records.setContent(document.myArray);
        if (isSorted)
            sort();
        records.prepareSearch();
    }
    void sort() { records.setSortDescriptors({{QStringLiteral("lastName")}, {QStringLiteral("firstName")}}); }
    void search(const QString &text)
    {
        host.searched = text;
        records.search({});
    }
    void showCategory(const QString &name)
    {
        ActionSender item;
        item.title = name;
        commands.doSelectCatMenu(item);
    }

    Host host;
    DocumentState document;
    VLColoredCategoryArrayController categories;
    Foundation::ArrayController forMenu;
    FilteringArrayController records{host, categories};
    CategoryCommands commands{host, records, categories, forMenu};
    RecordCommands recordCommands{host, records, categories};
};

// `prepare` runs before every `work` and is not measured.
template <class Prepare, class Work>
void measure(benchmark::State &state, List &list, Prepare prepare, Work work)
{
    for (auto iteration : state) {
        (void)iteration;
        prepare();
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
    }
    state.counters["shown"] = double(list.records.arrangedObjects().size());
}

void keystroke(benchmark::State &state, const char *before, const char *text)
{
    List list(state.range(0));
    measure(
        state, list, [&] { list.search(QString::fromUtf8(before)); },
        [&] { list.search(QString::fromUtf8(text)); });
}

void keystrokeInCategory(benchmark::State &state)
{
    List list(state.range(0));
    list.showCategory(QStringLiteral("category 3"));
    measure(
        state, list, [&] { list.search(QStringLiteral("grac")); },
        [&] { list.search(QStringLiteral("grace")); });
}

void keystrokeAfterAnEdit(benchmark::State &state)
{
    List list(state.range(0));
    const auto edit = [&] {
        list.search(QString());
        list.records.setValueForSelection(Foundation::Key(u"note"), QStringLiteral("another note"));
    };
    measure(state, list, edit, [&] { list.search(QStringLiteral("z")); });
}

void categorySwitch(benchmark::State &state)
{
    List list(state.range(0));
    measure(
        state, list, [&] { list.showCategory(QStringLiteral("Category 2")); },
        [&] { list.showCategory(QStringLiteral("Category 5")); });
}

void sortByName(benchmark::State &state)
{
    List list(state.range(0), false);
    measure(
        state, list, [&] { list.records.setSortDescriptors({}); }, [&] { list.sort(); });
}

void addARecord(benchmark::State &state)
{
    List list(state.range(0));
    measure(
        state, list, [] {}, [&] { list.recordCommands.addRow({}); });
}

void ofRecords(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK_CAPTURE(keystroke, absent, "~", "zyzzyva")->Apply(&ofRecords);
BENCHMARK_CAPTURE(keystroke, rare, "~", "c77@")->Apply(&ofRecords);
BENCHMARK_CAPTURE(keystroke, frequent, "~", "e")->Apply(&ofRecords);
BENCHMARK_CAPTURE(keystroke, growing, "lovel", "lovela")->Apply(&ofRecords);
BENCHMARK_CAPTURE(keystroke, growingFromFrequent, "e", "el")->Apply(&ofRecords);
BENCHMARK_CAPTURE(keystroke, cleared, "lovela", "")->Apply(&ofRecords);
BENCHMARK(keystrokeInCategory)->Apply(&ofRecords);
BENCHMARK(keystrokeAfterAnEdit)->Apply(&ofRecords);
BENCHMARK(categorySwitch)->Apply(&ofRecords);
BENCHMARK(sortByName)->Apply(&ofRecords);
BENCHMARK(addARecord)->Apply(&ofRecords);

} // namespace
