#include "DocumentChecks.h"

#include "archive/KeyedArchive.h"
#include "core/DecryptPipeline.h"
#include "core/DocumentReader.h"
#include "core/KeyDerivation.h"
#include "core/SavePipeline.h"

#include <QCryptographicHash>

#include <cstdlib>

using Foundation::Array;
using Foundation::Value;

// Replaces the real derivation, whose rounds would take nearly all of the time.
QByteArray pbkdf2HmacSha1(QByteArrayView secret, QByteArrayView salt, int, qsizetype length)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(secret.toByteArray());
    hash.addData(salt.toByteArray());
    return hash.result().left(length);
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

namespace
{

bool open(const QByteArray &file, DocumentState &state)
{
    if (!readDocument(file, state, Foundation::Services::shared().clock()))
        return false;
    state.plainPassword = FuzzedPassword;
    DecryptPipeline pipeline(state, Foundation::Services::shared().clock(),
                             [] { return newCategoryRecord(QStringLiteral("Generic"), 1); });
    if (!pipeline.decript())
        return false;
    state.isEncrypted = false;
    state.YouCanSave = true;
    return true;
}

void requireEveryRecordFiled(const DocumentState &state)
{
    qint64 counted = 0;
    require(state.myCategoryArray->count() > 0);
    for (const Value &entry : state.myCategoryArray->values)
        counted += entry.dictionary()->value(CategoryKey::cat_howManyUsingThis).intValue();
    // It is larger only if the list contains the same category twice.
    require(counted >= state.myArray->count());
    for (const Value &entry : state.myArray->values) {
        const auto category = entry.dictionary()->value(RecordKey::categoryPtr).dictionary();
        require(category && category->contains(CategoryKey::cat_howManyUsingThis));
    }
}

QByteArray archivedRecords(DocumentState &state)
{
    return Foundation::archivedData(SavePipeline(state).getCopyOfContentArrayForSaveOperation());
}

} // namespace

void openAndSave(const QByteArray &file)
{
    DocumentState state;
    if (!open(file, state))
        return;
    requireEveryRecordFiled(state);
    const QByteArray records = archivedRecords(state);
    const QByteArray captions = Foundation::archivedData(state.myLabelDictionary);
    const auto saved = SavePipeline(state).dataOfType({});
    if (!SavePipeline::canBeRead(state))
        return; // Records may be nested too deep after they are linked to their categories.
    require(saved.has_value());
    DocumentState again;
    require(open(*saved, again));
    requireEveryRecordFiled(again);
    require(archivedRecords(again) == records);
    require(Foundation::archivedData(again.myLabelDictionary) == captions);
    require(again.myCategoryArray->count() == state.myCategoryArray->count());
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
