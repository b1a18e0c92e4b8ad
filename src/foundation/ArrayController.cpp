#include "foundation/ArrayController.h"

#include <QCollator>

#include <algorithm>
#include <unordered_set>

namespace Foundation
{

namespace
{

// Sort keys are made once an object, not once a comparison.
struct SortKeys
{
    ArrayController::Object object;
    std::vector<std::pair<double, QCollatorSortKey>> keys;
};

} // namespace

ArrayController::ArrayController(QObject *parent)
    : QObject(parent)
{
}

void ArrayController::setContent(const Ref<Array> &content)
{
    m_content = content ? content : Array::create();
    rearrange(selectedObjects(), m_selection.empty() ? 0 : m_selection.front());
}

qsizetype ArrayController::selectionIndex() const
{
    return m_selection.empty() ? -1 : qsizetype(m_selection.front());
}

ArrayController::Objects ArrayController::selectedObjects() const
{
    Objects objects;
    for (const std::size_t index : m_selection)
        objects.push_back(m_arranged[index]);
    return objects;
}

qsizetype ArrayController::arrangedIndexOf(const Object &object) const
{
    const auto found = std::find(m_arranged.begin(), m_arranged.end(), object);
    return found == m_arranged.end() ? -1 : found - m_arranged.begin();
}

void ArrayController::setSelectionIndex(qsizetype index)
{
    setSelectionIndexes(index < 0 ? std::vector<std::size_t>()
                                  : std::vector<std::size_t>{std::size_t(index)});
}

void ArrayController::setSelectionIndexes(std::vector<std::size_t> indexes)
{
    std::erase_if(indexes, [this](std::size_t index) { return index >= m_arranged.size(); });
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    if (indexes == m_selection)
        return;
    m_selection = std::move(indexes);
    Q_EMIT selectionChanged();
}

void ArrayController::setSortDescriptors(std::vector<SortDescriptor> descriptors)
{
    m_sortDescriptors = std::move(descriptors);
    rearrangeObjects();
}

ArrayController::Objects ArrayController::contentObjects() const
{
    Objects objects;
    objects.reserve(m_content->values.size());
    for (const Value &entry : m_content->values) {
        if (Object object = entry.dictionary())
            objects.push_back(std::move(object));
    }
    return objects;
}

ArrayController::Objects ArrayController::arrangeObjects(const Objects &objects)
{
    Objects arranged = objects;
    sort(arranged);
    return arranged;
}

void ArrayController::sort(Objects &objects) const
{
    if (m_sortDescriptors.empty())
        return;
    QCollator collator;
    collator.setNumericMode(true);
    std::vector<SortKeys> rows;
    rows.reserve(objects.size());
    for (Object &object : objects) {
        SortKeys row{std::move(object), {}};
        for (const SortDescriptor &descriptor : m_sortDescriptors) {
            const Value value = row.object->valueForKeyPath(descriptor.keyPath);
            const double number = value.isDate()     ? value.dateValue()
                                  : value.isNumber() ? value.doubleValue()
                                                     : 0;
            row.keys.emplace_back(number, collator.sortKey(value.stringValue()));
        }
        rows.push_back(std::move(row));
    }
    std::stable_sort(rows.begin(), rows.end(), [this](const SortKeys &a, const SortKeys &b) {
        for (std::size_t i = 0; i < m_sortDescriptors.size(); ++i) {
            int order = a.keys[i].second.compare(b.keys[i].second);
            if (order == 0)
                order = a.keys[i].first < b.keys[i].first ? -1 : a.keys[i].first > b.keys[i].first ? 1 : 0;
            if (order != 0)
                return m_sortDescriptors[i].isAscending == (order < 0);
        }
        return false;
    });
    std::transform(rows.begin(), rows.end(), objects.begin(),
                   [](SortKeys &row) { return std::move(row.object); });
}

void ArrayController::rearrangeObjects()
{
    rearrange(selectedObjects(), m_selection.empty() ? 0 : m_selection.front());
}

void ArrayController::rearrange(const Objects &selected, std::size_t fallbackIndex)
{
    m_arranged = arrangeObjects(contentObjects());
    std::unordered_set<const Dictionary *> wanted;
    for (const Object &object : selected)
        wanted.insert(object.get());
    m_selection.clear();
    for (std::size_t i = 0; i < m_arranged.size() && !wanted.empty(); ++i) {
        if (wanted.erase(m_arranged[i].get()) > 0)
            m_selection.push_back(i);
    }
    if (m_selection.empty() && !m_arranged.empty())
        m_selection.push_back(std::min(fallbackIndex, m_arranged.size() - 1));
    Q_EMIT arrangedObjectsChanged();
    Q_EMIT selectionChanged();
}

ArrayController::Object ArrayController::newObject()
{
    return Dictionary::create();
}

void ArrayController::addObject(const Object &object)
{
    insertObject(object, qsizetype(m_arranged.size()));
}

void ArrayController::insertObject(const Object &object, qsizetype arrangedIndex)
{
    auto position = m_content->values.end();
    if (arrangedIndex >= 0 && std::size_t(arrangedIndex) < m_arranged.size())
        position = std::find(m_content->values.begin(), m_content->values.end(),
                             Value(m_arranged[std::size_t(arrangedIndex)]));
    m_content->values.insert(position, Value(object));
    Objects selected = selectedObjects();
    rearrange({object}, m_selection.empty() ? 0 : m_selection.front());
    // A filter may hide the new object: then the selection stays as it was.
    if (arrangedIndexOf(object) < 0)
        rearrange(selected, 0);
}

void ArrayController::removeObject(const Object &object)
{
    const auto position = std::find(m_content->values.begin(), m_content->values.end(), Value(object));
    if (position == m_content->values.end())
        return;
    const std::size_t fallback = m_selection.empty() ? 0 : m_selection.front();
    Objects selected = selectedObjects();
    m_content->values.erase(position);
    std::erase(selected, object);
    rearrange(selected, fallback);
}

void ArrayController::removeSelectedObjects()
{
    if (m_selection.empty())
        return;
    const std::size_t fallback = m_selection.front();
    std::unordered_set<const RefCounted *> removed;
    for (const Object &object : selectedObjects())
        removed.insert(object.get());
    std::erase_if(m_content->values,
                  [&removed](const Value &value) { return removed.contains(value.sharedObject()); });
    rearrange({}, fallback);
}

Value ArrayController::valueForSelection(QStringView keyPath, bool *isMixed) const
{
    if (isMixed)
        *isMixed = false;
    if (m_selection.empty())
        return {};
    const Value first = m_arranged[m_selection.front()]->valueForKeyPath(keyPath);
    for (const std::size_t index : m_selection) {
        if (m_arranged[index]->valueForKeyPath(keyPath) == first)
            continue;
        if (isMixed)
            *isMixed = true;
        return {};
    }
    return first;
}

void ArrayController::setValueForSelection(const Key &key, const Value &value)
{
    for (const std::size_t index : m_selection) {
        m_arranged[index]->setValue(key, value);
        Q_EMIT objectChanged(qsizetype(index));
    }
}

void ArrayController::noteChange(const Object &object)
{
    const qsizetype index = arrangedIndexOf(object);
    if (index >= 0)
        Q_EMIT objectChanged(index);
}

} // namespace Foundation
