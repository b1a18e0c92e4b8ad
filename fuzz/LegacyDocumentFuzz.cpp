#include "DocumentChecks.h"
#include "core/FileLayout.h"
#include "core/VLCrypto.h"
#include "foundation/KeyedArchive.h"

#include <cstdint>
#include <iterator>

// Documents of old releases, whose fields are enciphered one by one. The input's first byte tells the
// release, the second how many categories (low four bits) and records (high ones) there are and the third
// whether there are captions; then come the plain fields, each behind two bytes of length: date, captions,
// categories and records, in the order in which they are read. A field whose length has its highest bit set
// is a cipher text already; fields behind the end are empty.

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

constexpr quint64 releases[] = {1000,  1100,  2000,  2010,  20100, 20200,
                                20300, 20301, 20302, 20400, 30000, 30100};

const Key categoryFields[] = {CategoryKey::cat_category, Key(u"cat_mark"), CategoryKey::cat_backColor,
                              CategoryKey::cat_textColor, CategoryKey::cat_uniqueID};

class LegacyDocument
{
public:
    explicit LegacyDocument(const QByteArray &input)
        : m_rest(input)
        , m_engine(VLCrypto::DocumentVector.data(), FuzzedPassword)
    {
    }

    QByteArray file()
    {
        const int release = takeByte();
        const int counts = takeByte();
        const bool hasCaptions = (takeByte() & 1) != 0;
        auto root = Dictionary::create();
        root->setValue(FileKey::appversion, Value(releases[std::size_t(release) % std::size(releases)]));
        root->setValue(FileKey::crtnDt, takeField());
        if (hasCaptions)
            root->setValue(FileKey::labelDict, takeDictionary(contactTextKeys()));
        auto categories = Array::create();
        for (int i = 0; i < (counts & 15); ++i)
            categories->values.emplace_back(takeDictionary(categoryFields));
        root->setValue(FileKey::categoryArray, categories);
        auto records = Array::create();
        for (int i = 0; i < counts >> 4; ++i)
            records->values.emplace_back(takeRecord());
        root->setValue(FileKey::dataArray, records);
        return Foundation::archivedData(root);
    }

private:
    int takeByte()
    {
        if (m_rest.isEmpty())
            return 0;
        const auto byte = quint8(m_rest[0]);
        m_rest.remove(0, 1);
        return byte;
    }

    Value takeField()
    {
        const bool isCipherText = !m_rest.isEmpty() && (quint8(m_rest[0]) & 0x80) != 0;
        if (isCipherText)
            m_rest[0] = char(m_rest[0] & 0x7f);
        const QByteArray part = takePart(m_rest);
        return isCipherText ? part : m_engine.cryptData(part).value_or(QByteArray(""));
    }

    Ref<Dictionary> takeDictionary(const auto &keys)
    {
        auto dictionary = Dictionary::create();
        for (const Key &key : keys)
            dictionary->setValue(key, takeField());
        return dictionary;
    }

    Ref<Dictionary> takeRecord()
    {
        auto record = takeDictionary(contactTextKeys());
        for (const Key &key : {RecordKey::cat_uniqueID, RecordKey::isCompany, RecordKey::category})
            record->setValue(key, takeField());
        return record;
    }

    QByteArray m_rest;
    VLCrypto m_engine;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    openAndSave(LegacyDocument(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size))).file());
    return 0;
}
