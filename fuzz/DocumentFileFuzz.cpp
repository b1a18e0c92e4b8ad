#include "DocumentChecks.h"
#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"

#include <cstdint>

// Everything in a document file may be hostile: the root, and, if the attacker knows the password, also the
// enciphered content.
//
// An input that begins with the byte 0 consists of the archives of records, categories and captions, where
// each of the first two comes after its big-endian length of two bytes. An input that begins with the byte 1
// is the archive of the creation date. Both are enciphered into a whole document. All other inputs are files.

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Value;

QByteArray enciphered(VLCommonCrypto &engine, const QByteArray &plain)
{
    qint32 status = 0;
    return engine.encrypt(plain, &status).value_or(QByteArray());
}

QByteArray documentOf(const QByteArray &records, const QByteArray &categories, const QByteArray &captions,
                      const QByteArray &date)
{
    VLCommonCrypto engine;
    engine.setPasswordToDecrypt(FuzzedPassword, QByteArray(16, 'v'), QByteArray(8, 's'));
    const QByteArray check("check");
    auto root = Dictionary::create();
    root->setValue(FileKey::appversion, Value(CurrentFormatVersion));
    root->setValue(FileKey::dataArrayData, enciphered(engine, records));
    root->setValue(FileKey::catArrayData, enciphered(engine, categories));
    root->setValue(FileKey::labelDict, enciphered(engine, captions));
    root->setValue(FileKey::documentCreationDateData, enciphered(engine, date));
    root->setValue(FileKey::salt, engine.salt());
    root->setValue(FileKey::IV, engine.IV());
    root->setValue(FileKey::rc, enciphered(engine, check));
    root->setValue(FileKey::sha1_rc, VLCommonCrypto::dataSHA1(check).value_or(QByteArray()));
    return Foundation::archivedData(root);
}

QByteArray documentFrom(const QByteArray &input)
{
    static const QByteArray noRecords = Foundation::archivedData(Array::create());
    static const QByteArray noCaptions = Foundation::archivedData(Dictionary::create());
    static const QByteArray someDate = Foundation::archivedData(Value::date(0));
    QByteArray rest = input.mid(1);
    if (input.startsWith('\1'))
        return documentOf(noRecords, noRecords, noCaptions, rest);
    if (!input.startsWith('\0'))
        return input;
    const QByteArray records = takePart(rest);
    const QByteArray categories = takePart(rest);
    return documentOf(records, categories, rest, someDate);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    openAndSave(documentFrom(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size))));
    return 0;
}
