#include "RoughAccount.h"

#include "core/RecordModel.h"
#include "foundation/DisplayText.h"

using Foundation::displayText;

namespace
{

RoughAccount::Texts textsOf(const Foundation::Dictionary &object)
{
    RoughAccount::Texts texts;
    for (const auto &[key, value] : object.entries()) {
        const auto color = value.dictionary();
        const QString text = color ? textsOf(*color).values().join(u' ') : displayText(value);
        const bool isCounted = key == RecordKey::usageCount || key == CategoryKey::cat_howManyUsingThis;
        if (!text.isEmpty() && !isCounted && !(key == RecordKey::categoryPtr))
            texts[key.name()] = text;
    }
    return texts;
}

template <class Changed>
QList<int> idsNotIn(const QList<int> &ids, const QList<int> &others, Changed changed)
{
    QList<int> common;
    for (const int id : ids) {
        if (others.contains(id))
            common.append(id);
        else
            changed(id);
    }
    return common;
}

} // namespace

int RoughAccount::idOf(const Object &object) const
{
    const auto found = m_ids.find(object.get());
    return found == m_ids.end() ? -1 : found->second;
}

int RoughAccount::numberOf(const Object &object)
{
    const auto [entry, isNew] = m_ids.emplace(object.get(), m_lastId + 1);
    if (isNew) {
        ++m_lastId;
        m_kept.push_back(object);
    }
    return entry->second;
}

RoughAccount::State RoughAccount::observe(MyDocument &document)
{
    State now;
    for (const Object &category : document.myCategoryArrayController()->contentObjects()) {
        now.categories.append(numberOf(category));
        now.texts[now.categories.last()] = textsOf(*category);
    }
    for (const Object &record : document.myArrayController()->contentObjects()) {
        now.records.append(numberOf(record));
        Texts &texts = now.texts[now.records.last()] = textsOf(*record);
        const auto category = record->value(RecordKey::categoryPtr).dictionary();
        texts[QStringLiteral("category")] = category ? QString::number(numberOf(category)) : QString();
        texts.remove(RecordKey::cat_uniqueID.name()); // Only of what was read.
    }
    now.texts[Captions] = textsOf(*document.myLabelDictionary());
    return now;
}

QStringList RoughAccount::rebind(MyDocument &document)
{
    const auto number = [this](const auto &objects, const QList<int> &ids) {
        for (std::size_t i = 0; i < objects.size() && qsizetype(i) < ids.size(); ++i) {
            m_ids[objects[i].get()] = ids[qsizetype(i)];
            m_kept.push_back(objects[i]);
        }
    };
    number(document.myCategoryArrayController()->contentObjects(), m_state.categories);
    number(document.myArrayController()->contentObjects(), m_state.records);
    // An undo may have brought back a contact whose category was removed meanwhile.
    for (const int record : m_state.records) {
        QString &category = m_state.texts[record][QStringLiteral("category")];
        if (!m_state.categories.contains(category.toInt()))
            category = QString::number(m_state.categories.first());
    }
    return differences(document, {});
}

QStringList RoughAccount::differences(MyDocument &document, const Leave &leave)
{
    const State now = observe(document);
    const QStringList found = differencesInList(now, leave) + differencesInTexts(now, leave);
    take(now);
    return found;
}

// With the category that it went with, unless that was removed meanwhile.
bool RoughAccount::isBack(int id, Texts texts, const State &now) const
{
    QString &category = texts[QStringLiteral("category")];
    const QString former = m_last[id].value(QStringLiteral("category"));
    if (!now.categories.contains(former.toInt()))
        category = former;
    return texts == m_last[id];
}

QStringList RoughAccount::differencesInList(const State &now, const Leave &leave) const
{
    QStringList found;
    const auto say = [&found](int id, const char *what) {
        found.append(QStringLiteral("%1 %2").arg(id).arg(QLatin1String(what)));
    };
    int appeared = 0;
    int vanished = 0;
    const QList<int> stayed = idsNotIn(m_state.records, now.records, [&](int id) {
        if (++vanished > leave.vanish || (!leave.vanishing.isEmpty() && !leave.vanishing.contains(id)))
            say(id, "vanished");
    });
    const QList<int> stay = idsNotIn(now.records, m_state.records, [&](int id) {
        const Texts &texts = now.texts[id];
        const auto isCopy = [&](int model) {
            Texts original = m_state.texts[model];
            original[RecordKey::creationDate.name()] = texts[RecordKey::creationDate.name()];
            return texts == original;
        };
        if (++appeared > leave.appear)
            say(id, "came from nowhere");
        else if (m_last.contains(id) && !isBack(id, texts, now))
            say(id, "came back as another one");
        else if (!leave.copied.isEmpty() && std::none_of(leave.copied.begin(), leave.copied.end(), isCopy))
            say(id, "is the copy of none that was selected");
    });
    if (stay != stayed || QSet<int>(stay.begin(), stay.end()).size() != stay.size())
        found.append(QStringLiteral("contacts came twice or changed places"));
    int more = 0;
    int less = 0;
    idsNotIn(m_state.categories, now.categories, [&less](int) { ++less; });
    idsNotIn(now.categories, m_state.categories, [&more](int) { ++more; });
    if (more > leave.categoriesMore || less > leave.categoriesLess)
        found.append(QStringLiteral("%1 categories came, %2 went").arg(more).arg(less));
    return found;
}

QStringList RoughAccount::differencesInTexts(const State &now, const Leave &leave) const
{
    QStringList found;
    for (const auto &[id, before] : m_state.texts.asKeyValueRange()) {
        if (!now.texts.contains(id))
            continue;
        const Texts &after = now.texts[id];
        for (const QString &key : before.keys() + after.keys()) {
            const QString was = before.value(key);
            const QString is = after.value(key);
            const bool isMeant = leave.ids.contains(id) && key == leave.key;
            if (isMeant ? leave.text.isNull() || is == leave.text : is == was)
                continue;
            if (leave.isUndo && m_history[{id, key}].contains(is))
                continue;
            found.append(QStringLiteral("%1 of %2 was “%3”, is “%4”").arg(key).arg(id).arg(was, is));
        }
    }
    return found;
}

void RoughAccount::take(const State &now)
{
    m_state = now;
    for (const auto &[id, texts] : now.texts.asKeyValueRange()) {
        m_last[id] = texts;
        for (const auto &key : contactTextKeys())
            m_history[{id, key.name()}].insert(texts.value(key.name()));
    }
}
