#include "DocumentChecks.h"
#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "core/VLCrypto.h"

#include <cstdint>
#include <iterator>

// Documents of old releases, whose fields are enciphered separately. The first byte of the input selects the
// release; the second contains the number of categories (low four bits) and of records (high four bits). The
// bits of the third byte say, beginning with the lowest, whether there are captions, whether the first record
// occurs twice, and whether empty fields of later records use the buffers of the first record. Then follow
// the plain fields, each after a length of two bytes: date, captions, categories, records. The highest bit of
// a length means that the field is already enciphered, the next bit that it is no data at all. Fields after
// the end of the input are empty.

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

const Key furtherRecordFields[] = {RecordKey::cat_uniqueID, RecordKey::isCompany, RecordKey::resultingName};

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
        const int flags = takeByte();
        auto root = Dictionary::create();
        root->setValue(FileKey::appversion, Value(releases[std::size_t(release) % std::size(releases)]));
        root->setValue(FileKey::crtnDt, takeField());
        if (flags & 1)
            root->setValue(FileKey::labelDict, takeCaptions());
        auto categories = Array::create();
        for (int i = 0; i < (counts & 15); ++i)
            categories->values.emplace_back(takeDictionary(categoryFields));
        root->setValue(FileKey::categoryArray, categories);
        auto records = Array::create();
        for (int i = 0; i < counts >> 4; ++i) {
            const auto record = takeCaptions();
            for (const Key &key : furtherRecordFields)
                record->setValue(key, takeField());
            if (i > 0 && (flags & 4))
                shareEmptyFields(*records->values[0].dictionary(), *record);
            records->values.emplace_back(record);
        }
        if ((flags & 2) && records->count() > 0)
            records->values.push_back(records->values[0]);
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
        const int marks = m_rest.isEmpty() ? 0 : quint8(m_rest[0]) & 0xc0;
        if (marks)
            m_rest[0] = char(m_rest[0] & 0x3f);
        const QByteArray part = takePart(m_rest);
        if (marks & 0x40)
            return QString::fromLatin1(part);
        return marks ? part : m_engine.cryptData(part).value_or(QByteArray(""));
    }

    Ref<Dictionary> takeDictionary(const auto &keys)
    {
        auto dictionary = Dictionary::create();
        for (const Key &key : keys)
            dictionary->setValue(key, takeField());
        return dictionary;
    }

    // The texts of a record, and its category.
    Ref<Dictionary> takeCaptions()
    {
        auto captions = takeDictionary(contactTextKeys());
        captions->setValue(RecordKey::category, takeField());
        return captions;
    }

    static void shareEmptyFields(const Dictionary &from, Dictionary &record)
    {
        for (const auto &field : from.entries()) {
            if (record.value(field.key).contentBytes() == 0)
                record.setValue(field.key, field.value);
        }
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
