#include "RoughAccount.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"

#include <algorithm>

namespace
{

const QString categoryKey = QStringLiteral("category");

RoughAccount::Texts textsOf(const Foundation::Dictionary &object)
{
    RoughAccount::Texts texts;
    for (const auto &[key, value] : object.entries()) {
        const auto color = value.dictionary();
        const bool isCounter = key == RecordKey::usageCount || key == CategoryKey::cat_howManyUsingThis;
        if (!isCounter && !(key == RecordKey::categoryPtr))
            texts[key.name()] = color ? textsOf(*color).values().join(u' ') : Foundation::displayText(value);
    }
    texts.removeIf([](const auto &entry) { return entry.value().isEmpty(); });
    return texts;
}

} // namespace

int RoughAccount::idOf(const Object &object) const
{
    const auto found = m_ids.find(object.get());
    return found == m_ids.end() ? -1 : found->second;
}

QSet<int> RoughAccount::selectedIn(const Foundation::ArrayController &objects) const
{
    QSet<int> ids;
    for (const auto &object : objects.selectedObjects())
        ids.insert(idOf(object));
    return ids;
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
    for (const Object &contact : document.myArrayController()->contentObjects()) {
        now.contacts.append(numberOf(contact));
        Texts &texts = now.texts[now.contacts.last()] = textsOf(*contact);
        if (const auto category = contact->value(RecordKey::categoryPtr).dictionary())
            texts[categoryKey] = QString::number(numberOf(category));
        texts.remove(RecordKey::cat_uniqueID.name()); // Only contacts that were read have it.
    }
    now.texts[Captions] = textsOf(*document.myLabelDictionary());
    return now;
}

QStringList RoughAccount::differencesAfterReading(MyDocument &document)
{
    const auto number = [this](const auto &objects, const QList<int> &ids) {
        for (std::size_t i = 0; i < objects.size() && qsizetype(i) < ids.size(); ++i) {
            m_ids[objects[i].get()] = ids[qsizetype(i)];
            m_kept.push_back(objects[i]);
        }
    };
    number(document.myCategoryArrayController()->contentObjects(), m_state.categories);
    number(document.myArrayController()->contentObjects(), m_state.contacts);
    // A contact whose category was removed gets the first one, or a later one that was given the same id.
    const State now = observe(document);
    for (const int id : m_state.contacts) {
        QString &category = m_state.texts[id][categoryKey];
        if (!m_state.categories.contains(category.toInt()))
            category = now.texts.value(id).value(categoryKey);
    }
    return differences(document, {});
}

QStringList RoughAccount::differences(MyDocument &document, const Leave &leave)
{
    const State now = observe(document);
    const QStringList found =
        differencesInList(m_state.contacts, now.contacts, leave.contactsMore, leave) +
        differencesInList(m_state.categories, now.categories, leave.categoriesMore, leave) +
        differencesInTexts(now, leave);
    m_state = now;
    for (const auto &[id, texts] : now.texts.asKeyValueRange()) {
        for (const auto &[key, text] : texts.asKeyValueRange())
            m_history[{id, key}].insert(text);
    }
    return found;
}

QStringList RoughAccount::differencesInList(const QList<int> &before, const QList<int> &after, int more,
                                            const Leave &leave) const
{
    QStringList found;
    QList<int> stayed = before;
    const qsizetype vanished = stayed.removeIf([&](int id) {
        if (!after.contains(id) && !leave.vanishing.contains(id))
            found.append(QStringLiteral("%1 vanished").arg(id));
        return !after.contains(id);
    });
    QList<int> stay = after;
    const qsizetype appeared = stay.removeIf([&](int id) { return !before.contains(id); });
    if (vanished > 1 || appeared > more)
        found.append(QStringLiteral("%1 appeared, %2 vanished").arg(appeared).arg(vanished));
    if (!std::ranges::equal(stay, stayed))
        found.append(QStringLiteral("one is there twice or changed places"));
    return found;
}

QStringList RoughAccount::differencesInTexts(const State &now, const Leave &leave) const
{
    QStringList found;
    QSet<QString> undone;
    for (const auto &[id, before] : m_state.texts.asKeyValueRange()) {
        const Texts after = now.texts.value(id, before);
        Texts both = before;
        both.insert(after);
        for (const QString &key : both.keys()) {
            const QString was = before.value(key);
            const QString is = after.value(key);
            const bool isMeant = leave.ids.contains(id) && key == leave.key;
            if (isMeant ? leave.text.isNull() || is == leave.text : is == was)
                continue;
            if (leave.isUndo && (is.isEmpty() || m_history[{id, key}].contains(is)))
                undone.insert(key);
            else
                found.append(QStringLiteral("%1 of %2 was “%3”, is “%4”").arg(key).arg(id).arg(was, is));
        }
    }
    if (undone.size() > 1)
        found.append(QStringLiteral("one undo changed ") + undone.values().join(u' '));
    return found;
}
