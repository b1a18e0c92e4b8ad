#include "SampleContacts.h"
#include "browse/SearchIndex.h"
#include "lists/ArrayController.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>

// Measures the work after a keystroke in the search field, up to the list to be shown. The argument of every
// benchmark is the number of records. `toMemmem` is the time divided by that of memmem() of the C library
// over the same prepared texts in one piece.

namespace
{

using Foundation::ArrayController;
using Foundation::Dictionary;
using Foundation::Value;

constexpr double Mebibyte = 1024.0 * 1024.0;

ArrayController::Objects recordsOf(const DocumentState &document)
{
    ArrayController::Objects records;
    for (const Value &record : document.myArray->values)
        records.push_back(record.dictionary());
    return records;
}

std::string allText(const ArrayController::Objects &records)
{
    std::string text;
    std::vector<SearchText::LengthChange> changes;
    for (const auto &record : records) {
        for (const auto &key : SearchIndex::searchedKeys()) {
            SearchText::appendSearchForm(record->value(key).text(), text, changes);
            text.push_back(char(0xFF));
        }
    }
    return text;
}

// Counts at most one occurrence in 100 bytes, because the search also leaves a record after its first match.
double secondsOfMemmem(const std::string &text, const std::string &needle)
{
    const auto start = std::chrono::steady_clock::now();
    std::size_t found = 0;
    for (const char *at = text.data(), *end = at + text.size(); at < end; ++found) {
        at = static_cast<const char *>(memmem(at, std::size_t(end - at), needle.data(), needle.size()));
        if (!at)
            break;
        at += 100;
    }
    benchmark::DoNotOptimize(found);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void search(benchmark::State &state, const QString &before, const QString &needle,
            void (*change)(const Dictionary &former, Dictionary &record) = nullptr)
{
    const DocumentState document = sampleDocument(int(state.range(0)));
    if (change) {
        for (const auto &record : recordsOf(document))
            change(*record->copy(), *record);
    }
    const auto records = recordsOf(document);
    SearchIndex index;
    index.prepare(records);
    double seconds = 0;
    for (auto iteration : state) {
        (void)iteration;
        // The previous search was for another text, or for the needle without its last letter.
        index.search(records, before.isEmpty() ? QStringLiteral("~") : before);
        const auto start = std::chrono::steady_clock::now();
        const auto found = index.search(records, needle);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        seconds += elapsed.count();
        state.counters["found"] = double(found.size());
    }
    state.counters["toMemmem"] = seconds / double(state.iterations()) /
                                 secondsOfMemmem(allText(records), needle.toLower().toStdString());
}

void searchAbsent(benchmark::State &state)
{
    search(state, QString(), QStringLiteral("zyzzyva"));
}

void searchRare(benchmark::State &state)
{
    search(state, QString(), QStringLiteral("c77@"));
}

void searchFrequent(benchmark::State &state)
{
    search(state, QString(), QStringLiteral("e"));
}

void searchAccented(benchmark::State &state)
{
    search(state, QString(), QStringLiteral("Müller"));
}

// Decomposed form, in which other systems write file names, and some programs all texts.
void decomposeNames(const Dictionary &, Dictionary &record)
{
    for (const auto &key : {RecordKey::firstName, RecordKey::lastName})
        record.setValue(key, record.value(key).stringValue().normalized(QString::NormalizationForm_D));
}

void decomposeAll(const Dictionary &former, Dictionary &record)
{
    for (const auto &entry : former.entries()) {
        const QString text = QStringLiteral("ré ") + entry.value.stringValue();
        if (entry.value.isString())
            record.setValue(entry.key, text.normalized(QString::NormalizationForm_D));
    }
}

void searchDecomposedNames(benchmark::State &state)
{
    search(state, QString(), QStringLiteral("e"), decomposeNames);
}

void searchAllDecomposed(benchmark::State &state, const char *needle)
{
    search(state, QString(), QString::fromUtf8(needle), decomposeAll);
}

void shareANote(const Dictionary &, Dictionary &record)
{
    static const Value note(QStringLiteral("the same for all of them ").repeated(80));
    record.setValue(RecordKey::note, note);
}

void searchSharedNotes(benchmark::State &state)
{
    search(state, QString(), QStringLiteral("all of them e"), shareANote);
}

void searchGrowing(benchmark::State &state)
{
    search(state, QStringLiteral("Lovel"), QStringLiteral("Lovela"));
}

void searchGrowingFromFrequent(benchmark::State &state)
{
    search(state, QStringLiteral("e"), QStringLiteral("el"));
}

void prepareSearch(benchmark::State &state)
{
    const DocumentState document = sampleDocument(int(state.range(0)));
    const auto records = recordsOf(document);
    for (auto iteration : state) {
        (void)iteration;
        SearchIndex index;
        const auto start = std::chrono::steady_clock::now();
        index.prepare(records);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        state.counters["MiB"] = double(index.bytesUsed()) / Mebibyte;
        state.counters["bytesPerField"] =
            double(index.bytesUsed()) / double(records.size() * SearchIndex::searchedKeys().size());
    }
}

void ofRecords(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK(searchAbsent)->Apply(&ofRecords);
BENCHMARK(searchRare)->Apply(&ofRecords);
BENCHMARK(searchFrequent)->Apply(&ofRecords);
BENCHMARK(searchAccented)->Apply(&ofRecords);
BENCHMARK(searchDecomposedNames)->Apply(&ofRecords);
BENCHMARK_CAPTURE(searchAllDecomposed, frequent, "e")->Apply(&ofRecords);
BENCHMARK_CAPTURE(searchAllDecomposed, composed, "é")->Apply(&ofRecords);
BENCHMARK(searchSharedNotes)->Apply(&ofRecords)->Arg(1000000);
BENCHMARK(searchGrowing)->Apply(&ofRecords);
BENCHMARK(searchGrowingFromFrequent)->Apply(&ofRecords);
BENCHMARK(prepareSearch)->Apply(&ofRecords);

} // namespace
