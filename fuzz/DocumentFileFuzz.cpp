#include "core/DecryptPipeline.h"
#include "core/DocumentReader.h"
#include "core/SavePipeline.h"
#include "foundation/KeyedArchive.h"

#include <cstdint>
#include <cstdlib>

// Everything that stands in a document file is written by whoever made the file: the root, and with a known
// password also what is inside the cipher.
//
// Inputs that begin with a zero byte are three archives that take the place of deciphered records, categories
// and captions: two bytes of length, highest first, before each of the first two. They are linked and made
// ready for a save as after a decryption, but without a cipher, whose key derivations would take all the
// time. All other inputs are files.

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

DecryptPipeline pipelineOf(DocumentState &state)
{
    return DecryptPipeline(state, [] { return newCategoryRecord(QStringLiteral("Generic"), 1); });
}

void openFile(const QByteArray &bytes)
{
    DocumentState state;
    if (readDocument(bytes, state) != ReadOutcome::Loaded)
        return;
    state.plainPassword = QStringLiteral("correct horse");
    // Key derivations take nearly all the time: none for a check pair that cannot match.
    if (state.myRCDataEncrypted.isEmpty() || state.mySha1_RcData.size() != 20)
        return;
    if (pipelineOf(state).decript() == DecryptSuccess)
        require(state.myCategoryArray->count() > 0);
}

// As DecryptPipeline takes them: an array of dictionaries, or nothing.
Ref<Array> dictionariesIn(const QByteArray &archive)
{
    const auto root = Foundation::unarchivedRoot(archive);
    const Ref<Array> array = root ? root->array() : nullptr;
    if (!array)
        return nullptr;
    for (const Value &entry : array->values) {
        if (!entry.dictionary())
            return nullptr;
    }
    return array;
}

QByteArray takePart(QByteArray &rest)
{
    if (rest.size() < 2)
        return std::exchange(rest, {});
    const qsizetype size = (quint8(rest[0]) << 8) | quint8(rest[1]);
    const QByteArray part = rest.mid(2, size);
    rest = rest.mid(2 + size);
    return part;
}

void requireEveryRecordFiled(const DocumentState &state)
{
    qint64 counted = 0;
    for (const Value &entry : state.myCategoryArray->values)
        counted += entry.dictionary()->value(CategoryKey::cat_howManyUsingThis).intValue();
    // More only if the same category stands in the list twice.
    require(counted >= state.myArray->count());
    for (const Value &entry : state.myArray->values) {
        const auto category = entry.dictionary()->value(RecordKey::categoryPtr).dictionary();
        require(category && category->contains(CategoryKey::cat_howManyUsingThis));
    }
}

void requireNoReferences(const Array &copies, const Foundation::Key &leftOut)
{
    for (const Value &entry : copies.values)
        require(!entry.dictionary()->contains(leftOut));
}

void linkContent(QByteArray bytes)
{
    DocumentState state;
    const Ref<Array> records = dictionariesIn(takePart(bytes));
    const Ref<Array> categories = dictionariesIn(takePart(bytes));
    const auto labels = Foundation::unarchivedRoot(bytes);
    if (labels && labels->dictionary())
        resetOpenFlags(*labels->dictionary());
    if (!records || !categories)
        return;
    state.myArray = records;
    state.myCategoryArray = categories;
    pipelineOf(state).restoreFromSaveOperationContent(*records, *categories);
    requireEveryRecordFiled(state);

    const SavePipeline pipeline(state);
    const Ref<Array> recordCopies = pipeline.getCopyOfContentArrayForSaveOperation();
    const Ref<Array> categoryCopies = pipeline.getCopyOfCategoryArrayForSaveOperation();
    require(recordCopies->count() == records->count() && categoryCopies->count() == categories->count());
    requireNoReferences(*recordCopies, RecordKey::categoryPtr);
    requireNoReferences(*categoryCopies, CategoryKey::records);
    dictionariesIn(Foundation::archivedData(recordCopies));
    dictionariesIn(Foundation::archivedData(categoryCopies));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    if (bytes.startsWith('\0'))
        linkContent(bytes.mid(1));
    else
        openFile(bytes);
    return 0;
}
