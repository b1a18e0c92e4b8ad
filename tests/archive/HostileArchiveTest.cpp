#include "archive/KeyedArchive.h"
#include "archive/PropertyList.h"
#include "support/Describe.h"
#include "support/PropertyListBuilder.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>
#include <sys/resource.h>

#if defined(__SANITIZE_ADDRESS__)
constexpr bool IsSanitized = true;
#elif defined(__has_feature)
constexpr bool IsSanitized = __has_feature(address_sanitizer);
#else
constexpr bool IsSanitized = false;
#endif

using namespace Foundation;

// Files that nobody wrote in good faith. None may crash, hang or take more than a GiB beyond its own size.
namespace
{

using Uid = KeyedArchiveBuilder::Uid;
using Uids = KeyedArchiveBuilder::Uids;

class HostileArchive : public testing::Test
{
protected:
    ~HostileArchive() override
    {
        if (IsSanitized) // The sanitizer takes much memory of its own.
            return;
        // In KiB, of the whole program at its highest.
        rusage usage;
        getrusage(RUSAGE_SELF, &usage);
        EXPECT_LT(usage.ru_maxrss, (1 << 20) + m_largestFile / 1024);
    }

    bool isRead(const QByteArray &bytes)
    {
        m_largestFile = std::max(m_largestFile, bytes.size());
        const bool isRead = unarchivedRoot(bytes).has_value();
        if (bytes.startsWith("bplist")) {
            EXPECT_EQ(canBeUnarchived(bytes), isRead);
        }
        return isRead;
    }
    bool isReadAsList(const QByteArray &bytes)
    {
        m_largestFile = std::max(m_largestFile, bytes.size());
        return readPropertyList(bytes).has_value();
    }

    qsizetype m_largestFile = 0;
};

TEST_F(HostileArchive, CutAtEveryByteIsRefused)
{
    const auto record = Dictionary::create();
    record->setValue(u"name", Value(u"a text of more than fourteen characters"_qs));
    record->setValue(u"bytes", Value(QByteArray("xyz")));
    record->setValue(u"date", Value::date(1.5));
    const QByteArray whole = archivedData(Value(Array::create({Value(record), Value(u"\u00e9"_qs)})));
    ASSERT_TRUE(isRead(whole));
    for (qsizetype size = 0; size < whole.size(); ++size) {
        // A copy of just this size, so that the sanitizer sees every byte read beyond it.
        const QByteArray cut(whole.constData(), size);
        EXPECT_FALSE(isRead(cut)) << size;
        EXPECT_FALSE(isReadAsList(cut)) << size;
    }
}

TEST_F(HostileArchive, ThatContainsItselfIsRefused)
{
    using Builder = KeyedArchiveBuilder;
    const auto wrapped = [](QByteArrayView ofClass, QByteArrayView field) {
        return [=](Builder &a) {
            const Uid described = a.describedClass(ofClass);
            const auto itself = a.referenceTo(a.nextUid());
            return a.place(a.instance({{field, itself}}, described));
        };
    };
    const std::tuple<const char *, std::function<Uid(Builder &)>> cases[] = {
        {"array in itself", [](Builder &a) { return a.array({a.nextUid()}); }},
        {"two arrays in each other", [](Builder &a) { return a.array({a.array({a.nextUid() + 1})}); }},
        {"dictionary as its own value",
         [](Builder &a) {
             const Uid key = a.text("k");
             return a.dictionary({key}, {a.nextUid()});
         }},
        {"dictionary as its own key", [](Builder &a) { return a.dictionary({a.nextUid()}, {0}); }},
        {"text in itself", wrapped("NSString", "NS.string")},
        {"date at itself", wrapped("NSDate", "NS.time")},
        {"class of itself", [](Builder &a) { return a.place(a.instance({}, a.nextUid())); }},
        {"one object under two numbers in itself",
         [](Builder &a) {
             const auto shared =
                 a.instance({{"NS.objects", a.referencesTo({a.nextUid(), a.nextUid() + 1})}}, 2);
             a.place(shared);
             return a.place(shared);
         }},
    };
    for (const auto &[rule, build] : cases) {
        KeyedArchiveBuilder archive;
        EXPECT_FALSE(isRead(archive.bytes(build(archive)))) << rule;
    }
    PropertyListBuilder list;
    EXPECT_FALSE(isReadAsList(list.bytes(list.array({list.next()}))));
    const auto key = list.ascii("k");
    EXPECT_FALSE(isReadAsList(list.bytes(list.dictionary({key}, {list.next()}))));
    EXPECT_FALSE(isReadAsList(list.bytes(list.dictionary({list.next()}, {key}))));
}

// Each of the lists is in the next, and all are in the outermost, so that no single way in is long at first
// sight.
TEST_F(HostileArchive, OfTooManyLevelsIsRefusedHoweverItIsOrdered)
{
    for (const int levels : {511, 512, 200'000}) {
        KeyedArchiveBuilder archive;
        PropertyListBuilder list;
        list.referenceSize = 4;
        Uids fromWithin = {archive.array({})};
        Uids listed = {list.array({})};
        for (int i = 1; i < levels; ++i) {
            fromWithin.push_back(archive.array({fromWithin.back()}));
            listed.push_back(list.array({listed.back()}));
        }
        const bool isAllowed = levels < 512;
        const Uids fromWithout(fromWithin.rbegin(), fromWithin.rend());
        EXPECT_EQ(isRead(archive.bytes(archive.array(fromWithin))), isAllowed) << levels;
        EXPECT_EQ(isRead(archive.bytes(archive.array(fromWithout))), isAllowed) << levels;
        EXPECT_EQ(isRead(archive.bytes(archive.array({fromWithin.back()}))), isAllowed) << levels;
        EXPECT_EQ(isReadAsList(list.bytes(list.array(listed))), isAllowed) << levels;
    }
}

TEST_F(HostileArchive, ExpandingWithoutBoundIsRefused)
{
    for (const int doublings : {15, 60}) {
        KeyedArchiveBuilder archive;
        PropertyListBuilder list;
        Uid uid = archive.array({});
        auto number = list.array({});
        for (int i = 0; i < doublings; ++i) {
            uid = archive.array({uid, uid});
            number = list.array({number, number});
        }
        EXPECT_EQ(isRead(archive.bytes(uid)), doublings == 15);
        EXPECT_EQ(isReadAsList(list.bytes(number)), doublings == 15);
    }
}

// As in a document whose records are copies of one, or were all given one text.
TEST_F(HostileArchive, HonestSharingIsNotRefused)
{
    Value nested = Array::create({Value(QString(1 << 20, u'x'))});
    for (int doublings = 0; doublings < 17; ++doublings)
        nested = Array::create({nested, nested});
    const auto record = Dictionary::create();
    record->setValue(u"note", Value(QString(1 << 20, u'n')));
    record->setValue(u"odd", nested);
    const auto records = Array::create();
    for (int i = 0; i < 100'000; ++i)
        records->values.emplace_back(record->copy());
    EXPECT_TRUE(isRead(archivedData(records)));
}

constexpr int Many = 100'000;

Uids placedOften(KeyedArchiveBuilder &archive, PropertyListBuilder::Number object)
{
    Uids uids;
    for (int i = 0; i < Many; ++i)
        uids.push_back(archive.place(object));
    return uids;
}

// Objects of their own that lie in the same bytes.
PropertyListBuilder::Numbers twins(PropertyListBuilder &list, PropertyListBuilder::Number object)
{
    const auto first = list.next();
    list.offsets.insert(list.offsets.end(), Many, quint64(list.offsets[object]));
    PropertyListBuilder::Numbers numbers(Many);
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

// The same bytes, asked for again and again.
TEST_F(HostileArchive, AskingForTheSameBytesWithoutEndIsRefused)
{
    const QByteArray megabyte(1 << 20, 'x');
    const std::tuple<const char *, std::function<Uid(KeyedArchiveBuilder &)>> cases[] = {
        {"many dictionaries of one long list",
         [](auto &a) {
             const Uid key = a.text("k");
             return a.array(placedOften(a, a.bareDictionary(Uids(1000, key), Uids(1000, 0))));
         }},
        {"many arrays of one long list",
         [](auto &a) {
             return a.array(placedOften(a, a.instance({{"NS.objects", a.referencesTo(Uids(10'000, 0))}}, 2)));
         }},
        {"many texts of the same bytes",
         [&](auto &a) {
             Uids uids;
             for (const auto number : twins(a.list, a.list.ascii(megabyte)))
                 uids.push_back(a.place(number));
             return a.array(uids);
         }},
        {"many instances around one text",
         [&](auto &a) {
             const Uid string = a.describedClass("NSString");
             return a.array(placedOften(a, a.instance({{"NS.string", a.list.ascii(megabyte)}}, string)));
         }},
        {"many keys of one long text",
         [&](auto &a) { return a.dictionary(placedOften(a, a.list.ascii(megabyte)), Uids(Many, 0)); }},
        {"many instances of many fields",
         [](auto &a) {
             Uids names(10'000, a.list.ascii("other"));
             names[0] = a.list.ascii("$class");
             Uids contents(names.size(), names[1]);
             contents[0] = a.referenceTo(a.describedClass("NSNull"));
             return a.array(placedOften(a, a.list.dictionary(names, contents)));
         }},
    };
    for (const auto &[rule, build] : cases) {
        KeyedArchiveBuilder archive;
        EXPECT_FALSE(isRead(archive.bytes(build(archive)))) << rule;
    }
    PropertyListBuilder list;
    list.referenceSize = 4;
    const auto text = list.ascii(megabyte);
    const auto texts = twins(list, text);
    EXPECT_FALSE(isReadAsList(list.bytes(list.array(texts))));
    EXPECT_FALSE(isReadAsList(list.bytes(list.dictionary(texts, texts))));
    const PropertyListBuilder::Numbers same(Many, text);
    const PropertyListBuilder::Numbers values(Many, list.ascii("x"));
    EXPECT_TRUE(isReadAsList(list.bytes(list.dictionary(same, values)))) << "one text, read and hashed once";
}

// What costs far more memory than bytes.
TEST_F(HostileArchive, OfManyCheapObjectsTakesNoMoreMemoryThanItMay)
{
    for (const quint64 count : {1'000'000U, 60'000'000U}) {
        PropertyListBuilder list;
        list.referenceSize = 1;
        const auto yes = list.add("\x09");
        const auto all = list.counted(0xA0, count, QByteArray(qsizetype(count), char(yes)));
        EXPECT_EQ(isReadAsList(list.bytes(all)), count == 1'000'000) << "references of one byte";
    }
    for (const qsizetype count : {300'000, 8'000'000}) {
        const QByteArray xml = "<plist><array>" + QByteArray("<dict/>").repeated(count) + "</array></plist>";
        EXPECT_EQ(isReadAsList(xml), count == 300'000) << "empty dictionaries";
        EXPECT_FALSE(isRead(xml));
    }
}

TEST_F(HostileArchive, IsToldByItsEnds)
{
    const QByteArray archive = archivedData(Value(QByteArray(2 << 20, 'x')));
    const QByteArray middle = archive.sliced(6, archive.size() - 38);
    const QByteArray trailer = archive.last(32);
    const std::tuple<const char *, QByteArray, bool> cases[] = {
        {"an archive", archive, true},
        {"without its trailer", "bplist" + middle + QByteArray(32, '\0'), false},
        {"that is too short for its trailer", "bplist" + middle.first(1 << 20) + trailer, false},
        {"with another head", "BPLIST" + middle + trailer, false},
        {"XML", "\xEF\xBB\xBF \n<" + middle, true},
        {"XML in wide characters", QByteArray("\xFF\xFE<\0", 4) + middle, true},
        {"nothing", QByteArray(2 << 20, '\0'), false},
    };
    for (const auto &[rule, bytes, mayBeOne] : cases)
        EXPECT_EQ(mayBeArchive(bytes.first(64), bytes.last(64), bytes.size()), mayBeOne) << rule;
}

} // namespace
