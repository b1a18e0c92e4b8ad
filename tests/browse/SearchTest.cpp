#include "browse/SearchIndex.h"
#include "core/RecordModel.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <array>
#include <random>

using Foundation::Key;
using Foundation::Value;

namespace
{

using Records = SearchIndex::Objects;

// The rule as plainly as it can be put, and with nothing of the system's own: canonical decompositions
// compared one composed character after another, from every place on.
namespace Reference
{

std::vector<QString> composedCharacters(const QString &text)
{
    std::vector<QString> characters;
    char32_t previous = 0;
    for (qsizetype i = 0; i < text.size();) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const qsizetype units = isPair ? 2 : 1;
        const char32_t c =
            isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : char32_t(text[i].unicode());
        const bool isVowel = c >= 0x1161 && c <= 0x1175;
        const bool isTail = c >= 0x11A8 && c <= 0x11C2;
        const bool joins = QChar::isMark(c) || (isVowel && previous >= 0x1100 && previous <= 0x1112) ||
                           (isTail && ((previous >= 0x1161 && previous <= 0x1175) ||
                                       (previous >= 0xAC00 && previous <= 0xD7A3)));
        if (joins && !characters.empty())
            characters.back() += text.mid(i, units);
        else
            characters.push_back(text.mid(i, units));
        previous = c;
        i += units;
    }
    return characters;
}

bool fieldMatches(const QString &field, const QString &searched)
{
    const QLocale language(QLocale::English);
    const QString needle = language.toLower(searched);
    const auto hay = composedCharacters(language.toLower(field));
    const auto sought = composedCharacters(needle);
    const auto isEqual = [](const QString &a, const QString &b) {
        return a.normalized(QString::NormalizationForm_D) == b.normalized(QString::NormalizationForm_D);
    };
    for (std::size_t i = 0; i + sought.size() <= hay.size(); ++i) {
        const auto place = hay.begin() + std::ptrdiff_t(i);
        if (!std::equal(sought.begin(), sought.end(), place, isEqual))
            continue;
        qsizetype length = 0;
        for (std::size_t j = 0; j < sought.size(); ++j)
            length += hay[i + j].size();
        return length == needle.size(); // The first occurrence decides.
    }
    return false;
}

SearchIndex::Positions search(const Records &records, const QString &searched)
{
    SearchIndex::Positions found;
    for (quint32 i = 0; i < records.size(); ++i) {
        const auto &keys = SearchIndex::searchedKeys();
        const bool matches = std::any_of(keys.begin(), keys.end(), [&](const Key &key) {
            return fieldMatches(records[i]->value(key).stringValue(), searched);
        });
        if (matches)
            found.push_back(i);
    }
    return found;
}

} // namespace Reference

TEST(Search, ComparesComposedCharactersInLowerCase)
{
    const std::tuple<const char *, QString, QString, bool> cases[] = {
        {"case does not count", u"ÄRGER in Köln"_qs, u"äRgEr"_qs, true},
        {"accents count", u"Zoë"_qs, u"zoe"_qs, false},
        {"a base with a mark is one character", u"Zoe\u0308"_qs, u"zoe"_qs, false},
        {"an equivalent of another length is no hit", u"Zoe\u0308"_qs, u"zoë"_qs, false},
        {"an equivalent of the same length is one", u"\u1E0B\u0323"_qs, u"\u1E0D\u0307"_qs, true},
        {"a first hit of another length hides the exact one", u"e\u0301 \u00E9"_qs, u"\u00E9"_qs, false},
        {"dotted capital I becomes i and a dot", u"İzmir"_qs, u"izmir"_qs, false},
        {"joiners part characters", u"👩\u200D💻"_qs, u"👩"_qs, true},
        {"a mark before a syllable leaves it whole", u"\U000114BE각"_qs, u"각"_qs, true},
        {"no further than the text", u"end"_qs, u"ends"_qs, false},
    };
    for (const auto &[rule, field, searched, matches] : cases) {
        SCOPED_TRACE(rule);
        auto record = Foundation::Dictionary::create();
        record->setValue(RecordKey::note, field);
        EXPECT_EQ(SearchIndex().search({record}, searched).size(), matches ? 1U : 0U);
        EXPECT_EQ(Reference::fieldMatches(field, searched), matches) << "by the reference";
    }
}

TEST(Search, LooksIntoEighteenKeysAndIntoTextsOnly)
{
    const QStringList keys =
        u"firstName lastName company resultingName category note phoneWork phonePersonal mobile "
        "pager faxWork faxPersonal emailWork emailPersonal webWork webPersonal addressWork "
        "addressPersonal"_qs.split(u' ');
    ASSERT_EQ(keys.size(), 18);
    Records records;
    for (const QString &key : keys) {
        auto record = Foundation::Dictionary::create();
        record->setValue(key, u"Needle 7"_qs);
        records.push_back(record);
    }
    auto other = Foundation::Dictionary::create();
    for (const auto *key : {u"cat_uniqueID", u"categoryNAME", u"nickname"})
        other->setValue(QString::fromUtf16(key), u"Needle 7"_qs);
    other->setValue(RecordKey::note, Value(qint32(7))); // no text
    records.push_back(other);
    SearchIndex index;
    EXPECT_EQ(index.search(records, u"needle 7"_qs).size(), std::size_t(keys.size()));
    // Two fields side by side make no text together.
    records.front()->setValue(RecordKey::note, u"le"_qs);
    EXPECT_TRUE(index.search(records, u"needle 7le"_qs).empty());
}

TEST(Search, KeepsATextThatManyRecordsShareOnce)
{
    const Value shared(u"Needle 7 "_qs.repeated(200));
    Records records(1000);
    for (auto &record : records) {
        record = Foundation::Dictionary::create();
        record->setValue(RecordKey::note, shared);
    }
    SearchIndex index;
    EXPECT_EQ(index.search(records, u"needle 7"_qs).size(), records.size());
    EXPECT_LT(index.bytesUsed(), records.size() * 200);
}

// Texts of the kinds that go wrong: equivalents, marks, pairs and halves of them, special cases of case.
class OddTexts
{
public:
    explicit OddTexts(quint32 seed)
        : m_generator(seed)
    {
    }
    std::size_t below(std::size_t limit) { return m_generator() % limit; }
    QString text(std::size_t longest)
    {
        static const QStringList pieces = {
            u"a"_qs,       u"e"_qs,          u"E"_qs,      u"é"_qs,      u"É"_qs,      u"e\u0301"_qs,
            u"\u0301"_qs,  u"\u0323"_qs,     u"\u1E0B"_qs, u"\u1E0D"_qs, u"d"_qs,      u"\u0307"_qs,
            u"İ"_qs,       u"i"_qs,          u"Σ"_qs,      u"ς"_qs,      u"σ"_qs,      u" "_qs,
            u"ﬁ"_qs,       u"\u212A"_qs,     u"k"_qs,      u"👩"_qs,      u"\u200D"_qs, u"💻"_qs,
            QChar(0xD83D), QChar(0xDC69),    u"가"_qs,     u"\u1100"_qs, u"\u1161"_qs, u"\u11A8"_qs,
            u"각"_qs,      u"\U0002F800"_qs, u"\uFA6C"_qs, u"𤋮"_qs,     u"\u0958"_qs, u"\u0915"_qs,
            u"\u093C"_qs,  u"ß"_qs,          u"ẞ"_qs,      u"\u1F71"_qs, u"ά"_qs,      u"丽"_qs};
        QString text;
        for (std::size_t i = below(longest + 1); i > 0; --i)
            text += pieces[qsizetype(below(std::size_t(pieces.size())))];
        return text;
    }

private:
    std::mt19937 m_generator;
};

TEST(Search, FindsWhatThePlainRuleFindsThroughEveryChange)
{
    OddTexts odd(20261123);
    const auto &keys = SearchIndex::searchedKeys();
    std::array<Value, 3> longTexts; // which several records share, and which come and go
    const auto change = [&](Foundation::Dictionary &record) {
        Value &shared = longTexts[odd.below(longTexts.size())];
        if (odd.below(40) == 0)
            shared = Value(odd.text(6) + QString(32, u'-') + odd.text(6));
        record.setValue(keys[odd.below(keys.size())], odd.below(4) == 0 ? shared : Value(odd.text(6)));
    };
    Records records;
    for (int i = 0; i < 40; ++i) {
        records.push_back(Foundation::Dictionary::create());
        change(*records.back());
    }
    SearchIndex index;
    std::size_t found = 0;
    for (int round = 0; round < 1500; ++round) {
        for (std::size_t edits = odd.below(3); edits > 0; --edits)
            change(*records[odd.below(records.size())]);
        const auto place = records.begin() + std::ptrdiff_t(odd.below(records.size()));
        switch (odd.below(8)) {
        case 0:
            records.insert(place, place->get()->copy());
            break;
        case 1:
            records.erase(place);
            break;
        case 2:
            std::rotate(records.begin(), place, records.end());
            break;
        default:
            break;
        }
        QString searched;
        for (std::size_t letters = 1 + odd.below(3); letters > 0; --letters) {
            searched += odd.text(1); // Mostly it only grows.
            if (searched.isEmpty())
                continue;
            SCOPED_TRACE(::testing::PrintToString(searched));
            const auto positions = index.search(records, searched);
            ASSERT_EQ(positions, Reference::search(records, searched));
            found += positions.size();
        }
    }
    EXPECT_GT(found, 5000U); // It was about something.
}

} // namespace
