#include "SampleContacts.h"
#include "archive/KeyedArchive.h"
#include "core/DecryptPipeline.h"
#include "core/DocumentReader.h"
#include "core/FileLayout.h"
#include "core/SavePipeline.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <malloc.h>
#include <memory>

// The argument of every benchmark is the number of records. `perRecord` is the number of bytes of a record in
// the archive or the file. `toCopy` is the time of the work divided by the time to copy these bytes into
// memory that is already in use.

namespace
{

using Foundation::Array;
using Foundation::Ref;
using Foundation::Value;

Ref<Foundation::Dictionary> defaultCategory()
{
    return newCategoryRecord(QStringLiteral("Generic"), 1);
}

QByteArray archiveOf(DocumentState &document)
{
    return SavePipeline(document).archivedRecords();
}

// The memory in bytes that the program has allocated and not freed.
double bytesInUse()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

double secondsToCopy(const QByteArray &bytes)
{
    constexpr int Rounds = 5;
    QByteArray target(bytes.size(), 't');
    double best = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        std::memcpy(target.data(), bytes.constData(), std::size_t(bytes.size()));
        benchmark::ClobberMemory();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

// Runs `work` and reports its figures.
template <class Work>
void measure(benchmark::State &state, const QByteArray &bytes, Work work)
{
    double seconds = 0;
    for (auto iteration : state) {
        (void)iteration;
        const auto start = std::chrono::steady_clock::now();
        const auto made = work();
        benchmark::DoNotOptimize(made);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        seconds += elapsed.count();
        state.SetIterationTime(elapsed.count()); // Without the destruction of the results.
    }
    state.counters["perRecord"] = double(bytes.size()) / double(state.range(0));
    state.counters["toCopy"] = seconds / double(state.iterations()) / secondsToCopy(bytes);
}

Ref<Array> liveRecords(const QByteArray &archive, DocumentState &document)
{
    const auto root = Foundation::unarchivedRoot(archive);
    Ref<Array> records = root ? root->array() : Array::create();
    DecryptPipeline(document, Foundation::Services::shared().clock(), &defaultCategory)
        .restoreFromSaveOperationContent(*records, *document.myCategoryArray);
    return records;
}

void decodeRecords(benchmark::State &state)
{
    DocumentState document = sampleDocument(int(state.range(0)));
    const QByteArray archive = archiveOf(document);
    measure(state, archive, [&] { return liveRecords(archive, document); });
}

void encodeRecords(benchmark::State &state)
{
    DocumentState document = sampleDocument(int(state.range(0)));
    measure(state, archiveOf(document), [&] { return archiveOf(document); });
}

// The check of a save before it enciphers: reading without making values.
void checkRecords(benchmark::State &state)
{
    DocumentState document = sampleDocument(int(state.range(0)));
    const QByteArray archive = archiveOf(document);
    measure(state, archive, [&] { return Foundation::canBeUnarchived(archive); });
}

void memoryOfRecords(benchmark::State &state)
{
    constexpr double Mebibyte = 1024.0 * 1024.0;
    QByteArray archive;
    {
        DocumentState document = sampleDocument(int(state.range(0)));
        archive = archiveOf(document);
    }
    for (auto iteration : state) {
        (void)iteration;
        DocumentState document;
        const double before = bytesInUse();
        const Ref<Array> records = liveRecords(archive, document);
        state.counters["MiB"] = (bytesInUse() - before) / Mebibyte;
        state.counters["perRecord"] = (bytesInUse() - before) / double(state.range(0));
    }
}

void measureOpening(benchmark::State &state, const QByteArray &file, const QString &password)
{
    measure(state, file, [&] {
        auto document = std::make_unique<DocumentState>();
        const bool isRead = readDocument(file, *document, Foundation::Services::shared().clock()).succeeded();
        document->plainPassword = password;
        if (!isRead ||
            !DecryptPipeline(*document, Foundation::Services::shared().clock(), &defaultCategory).decript())
            state.SkipWithError("the document does not open");
        return document;
    });
}

void openDocument(benchmark::State &state)
{
    DocumentState saved = sampleDocument(int(state.range(0)));
    const QByteArray file = SavePipeline(saved).dataOfType({}).value_or(QByteArray());
    measureOpening(state, file, saved.plainPassword);
}

void saveDocument(benchmark::State &state)
{
    DocumentState document = sampleDocument(int(state.range(0)));
    const QByteArray file = SavePipeline(document).dataOfType({}).value_or(QByteArray());
    measure(state, file, [&] { return SavePipeline(document).dataOfType({}); });
}

// The work of a lock, without the window.
void lockDocument(benchmark::State &state)
{
    DocumentState document = sampleDocument(int(state.range(0)));
    const QByteArray archive = archiveOf(document);
    measure(state, archive, [&] {
        SavePipeline(document).encryptData();
        return SavePipeline::canBeRead(document).succeeded();
    });
}

// Contacts that share one text. The figure is the size that the text would have if it were copied.
void openSharedText(benchmark::State &state)
{
    constexpr qsizetype Length = 2000;
    DocumentState saved = sampleDocument(int(state.range(0)));
    const Value note(QString(Length, u'n'));
    for (const Value &record : saved.myArray->values)
        record.dictionary()->setValue(RecordKey::note, note);
    const QByteArray file = SavePipeline(saved).dataOfType({}).value_or(QByteArray());
    if (!SavePipeline::canBeRead(saved))
        state.SkipWithError("the document cannot be saved");
    measureOpening(state, file, saved.plainPassword);
}

// A document of release 30000, with every field enciphered separately.
QByteArray fileOfOldRelease(const DocumentState &document)
{
    const VLCrypto engine(VLCrypto::DocumentVector.data(), document.plainPassword);
    auto records = Array::create();
    for (const Value &entry : document.myArray->values) {
        auto stored = Foundation::Dictionary::create();
        for (const auto &key : contactTextKeys())
            stored->setValue(
                key,
                engine.cryptString(entry.dictionary()->value(key).stringValue()).value_or(QByteArray("")));
        records->values.emplace_back(stored);
    }
    auto root = Foundation::Dictionary::create();
    root->setValue(FileKey::appversion, Value(quint64(30000)));
    root->setValue(FileKey::dataArray, records);
    root->setValue(FileKey::categoryArray, Array::create());
    return Foundation::archivedData(root);
}

void openOldRelease(benchmark::State &state)
{
    const DocumentState saved = sampleDocument(int(state.range(0)));
    measureOpening(state, fileOfOldRelease(saved), saved.plainPassword);
}

void ofRecords(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseManualTime();
}

// Up to the largest document that is supported.
void ofUpToAMillionRecords(benchmark::internal::Benchmark *benchmark)
{
    ofRecords(benchmark);
    benchmark->Arg(1000000);
}

BENCHMARK(decodeRecords)->Apply(&ofRecords);
BENCHMARK(encodeRecords)->Apply(&ofRecords);
BENCHMARK(checkRecords)->Apply(&ofRecords);
BENCHMARK(memoryOfRecords)->Arg(1000)->Arg(10000)->Arg(100000)->Iterations(1);
BENCHMARK(openDocument)->Apply(&ofRecords);
BENCHMARK(openSharedText)->Apply(&ofUpToAMillionRecords);
BENCHMARK(openOldRelease)->Apply(&ofRecords);
BENCHMARK(saveDocument)->Apply(&ofUpToAMillionRecords);
BENCHMARK(lockDocument)->Apply(&ofUpToAMillionRecords);

} // namespace
