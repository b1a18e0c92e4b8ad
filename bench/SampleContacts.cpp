#include "SampleContacts.h"

#include <random>

using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

namespace
{

const char *const firstNames[] = {"Ada",  "Grace",    "Emmy",  "Zoë",       "Łukasz", "Björn",
                                  "Иван", "Mary Ann", "Sofia", "Hedwig",    "Tom",    "Ingrid",
                                  "José", "Kenichi",  "Priya", "Wilhelmina"};
const char *const lastNames[] = {"Lovelace", "Hopper", "Noether",  "van der Berg",
                                 "García",   "Müller", "Иванов",   "O'Brien",
                                 "Smith",    "Tanaka", "Kowalski", "Papadopoulos"};
const char *const companies[] = {"Acme", "Globex Ltd", "Initech", "Söhne GmbH", "Stark & Co", "Umbrella"};
const char *const streets[] = {"Elm Ave", "Hauptstr.", "Rue Haute", "Market Sq", "High St"};
const char *const cities[] = {"Lyon", "Zürich", "York", "Bern", "Kraków", "Reno"};
const char *const notes[] = {"Call in the morning", "No e-mail, please", "Born in May",
                             "Ask for the night desk", "nur schriftlich"};

// The distributions of the standard library differ between implementations.
class Picker
{
public:
    quint32 below(quint32 limit) { return quint32((quint64(m_generator()) * limit) >> 32); }
    template <std::size_t N>
    QString from(const char *const (&choices)[N])
    {
        return QString::fromUtf8(choices[below(N)]);
    }
    QString phone() { return QStringLiteral("%1 %2").arg(100 + below(900)).arg(10000 + below(90000)); }
    QString address()
    {
        return QStringLiteral("%1 %2, %3").arg(from(streets)).arg(1 + below(200)).arg(from(cities));
    }

private:
    std::mt19937 m_generator{20110301};
};

Ref<Dictionary> sampleRecord(Picker &picker, int number, const Ref<Dictionary> &category)
{
    using namespace RecordKey;
    auto record = newContactRecord(category, 320000000.0 + 61.25 * number);
    record->setValue(firstName, picker.from(firstNames));
    record->setValue(lastName, picker.from(lastNames));
    record->setValue(company, picker.from(companies));
    for (const auto &key : {phoneWork, faxWork, phonePersonal, faxPersonal, mobile, pager})
        record->setValue(key, picker.phone());
    record->setValue(emailWork, QStringLiteral("c%1@acme.com").arg(number));
    record->setValue(emailPersonal, QStringLiteral("p%1@home.net").arg(number));
    record->setValue(webWork, QStringLiteral("acme.com/%1").arg(number));
    record->setValue(webPersonal, QStringLiteral("home.net/%1").arg(number));
    record->setValue(addressWork, picker.address());
    record->setValue(addressPersonal, picker.address());
    record->setValue(note, picker.from(notes));
    record->setValue(isCompany, Value(picker.below(10) == 0));
    return record;
}

} // namespace

DocumentState sampleDocument(int recordCount)
{
    constexpr qint64 CategoryCount = 8;
    DocumentState document;
    document.plainPassword = QStringLiteral("correct horse");
    document.documentCreationDate = Value::date(320000000.0);
    for (qint64 id = 1; id <= CategoryCount; ++id)
        document.myCategoryArray->values.emplace_back(
            newCategoryRecord(QStringLiteral("Category %1").arg(id), id));
    Picker picker;
    for (int number = 0; number < recordCount; ++number) {
        const qsizetype place = picker.below(CategoryCount);
        const Ref<Dictionary> category = document.myCategoryArray->at(place).dictionary();
        document.myArray->values.emplace_back(sampleRecord(picker, number, category));
    }
    return document;
}
