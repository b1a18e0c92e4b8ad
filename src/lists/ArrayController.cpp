#include "lists/ArrayController.h"

#include "lists/ReplacedObjects.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>

namespace Foundation
{

ArrayController::ArrayController(QObject *parent)
    : QObject(parent)
{
}

void ArrayController::setContent(const Ref<Array> &content)
{
    m_content = content ? content : Array::create();
    rearrangeObjects();
}

void ArrayController::replaceContent(const Ref<Array> &content)
{
    Objects selected = selectedObjects();
    std::vector<Object *> places;
    for (Object &object : selected)
        places.push_back(&object);
    replaceObjects(*m_content, *content, places);
    const std::size_t place = firstSelectedPosition();
    m_content = content;
    arrange();
    select(positionsOf(selected), place, false);
}

qsizetype ArrayController::selectionIndex() const
{
    return m_selection.empty() ? -1 : qsizetype(m_selection.front());
}

ArrayController::Objects ArrayController::selectedObjects() const
{
    Objects objects;
    for (const std::size_t index : m_selection)
        objects.push_back(arrangedObjects()[index]);
    return objects;
}

qsizetype ArrayController::arrangedIndexOf(const Object &object) const
{
    const ArrangedObjects arranged = arrangedObjects();
    const auto found = std::find(arranged.begin(), arranged.end(), object);
    return found == arranged.end() ? -1 : found - arranged.begin();
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
    m_selectionValues.clear();
    ++m_selectionStamp;
    Q_EMIT selectionChanged();
}

void ArrayController::setSortDescriptors(std::vector<SortDescriptor> descriptors)
{
    m_sortOrder.setDescriptors(std::move(descriptors));
    rearrangeObjects();
}

const std::shared_ptr<const ArrayController::Objects> &ArrayController::updatedContentObjects()
{
    // Compares pointers only, since a list is arranged far more often than it changes.
    const Objects &former = *m_contentObjects;
    std::size_t matching = 0;
    bool isSame = true;
    for (const Value &entry : m_content->values) {
        if (entry.type() != Value::Type::Dictionary)
            continue;
        isSame = matching < former.size() &&
                 static_cast<const RefCounted *>(former[matching].get()) == entry.sharedObject();
        if (!isSame)
            break;
        ++matching;
    }
    if (isSame && matching == former.size())
        return m_contentObjects;
    auto objects = std::make_shared<Objects>();
    objects->reserve(m_content->values.size());
    for (const Value &entry : m_content->values) {
        if (Object object = entry.dictionary())
            objects->push_back(std::move(object));
    }
    m_contentObjects = std::move(objects);
    return m_contentObjects;
}

ArrayController::Objects ArrayController::arrangeObjects(const Objects &objects)
{
    return objectsAt(objects, arrangedPositions(objects));
}

ArrayController::Positions ArrayController::arrangedPositions(const Objects &objects)
{
    Positions all(objects.size());
    std::iota(all.begin(), all.end(), 0U);
    return sorted(objects, std::move(all));
}

ArrayController::Positions ArrayController::sorted(const Objects &objects, Positions positions)
{
    m_sortOrder.arrange(objects, positions);
    return positions;
}

ArrayController::Objects ArrayController::objectsAt(const Objects &objects, const Positions &positions)
{
    const ArrangedObjects arranged(objects, positions);
    return {arranged.begin(), arranged.end()};
}

void ArrayController::rearrangeObjects()
{
    const Objects selected = selectedObjects();
    const std::size_t place = firstSelectedPosition();
    arrange();
    selectAgain(selected, place);
}

void ArrayController::arrange()
{
    // An object that was removed from the content must stay alive as long as it is shown.
    const std::shared_ptr<const Objects> objects = updatedContentObjects();
    m_arranged = arrangedPositions(*objects);
    m_arrangedFrom = objects;
}

void ArrayController::select(std::vector<std::size_t> positions, std::size_t fallbackIndex,
                             bool isSameSelection)
{
    if (positions.empty() && !m_arranged.empty()) {
        positions.push_back(std::min(fallbackIndex, m_arranged.size() - 1));
        isSameSelection = false;
    }
    m_selection = std::move(positions);
    m_selectionValues.clear();
    if (!isSameSelection)
        ++m_selectionStamp;
    Q_EMIT arrangedObjectsChanged();
    Q_EMIT selectionChanged();
}

void ArrayController::selectAgain(const Objects &former, std::size_t fallbackIndex)
{
    std::vector<std::size_t> positions = positionsOf(former);
    const bool isSameSelection = positions.size() == former.size();
    select(std::move(positions), fallbackIndex, isSameSelection);
}

std::vector<std::size_t> ArrayController::positionsOf(const Objects &objects) const
{
    std::vector<std::size_t> positions;
    if (objects.size() == 1) { // The usual case, in which a linear search is fastest.
        if (const qsizetype index = arrangedIndexOf(objects.front()); index >= 0)
            positions.push_back(std::size_t(index));
        return positions;
    }
    std::unordered_set<const Dictionary *> wanted;
    for (const Object &object : objects)
        wanted.insert(object.get());
    const ArrangedObjects arranged = arrangedObjects();
    for (std::size_t i = 0; i < arranged.size() && !wanted.empty(); ++i) {
        if (wanted.erase(arranged[i].get()) > 0)
            positions.push_back(i);
    }
    return positions;
}

ArrayController::Object ArrayController::newObject()
{
    return Dictionary::create();
}

void ArrayController::addObject(const Object &object)
{
    const Objects selected = selectedObjects();
    const std::size_t place = firstSelectedPosition();
    m_content->values.emplace_back(object);
    showAtItsPlace(object);
    // A filter may hide the new object; then the selection does not change.
    if (const qsizetype index = arrangedIndexOf(object); index >= 0)
        select({std::size_t(index)}, place, false);
    else
        selectAgain(selected, place);
}

void ArrayController::showAtItsPlace(const Object &object)
{
    const Positions arranged = arrangedPositions(*updatedContentObjects());
    const ArrangedObjects fresh(*m_contentObjects, arranged);
    auto place = std::find(fresh.begin(), fresh.end(), object);
    if (place == fresh.end())
        return;
    // The position after the closest preceding object that is shown now.
    qsizetype index = 0;
    while (index == 0 && place != fresh.begin())
        index = arrangedIndexOf(*--place) + 1;
    auto objects = std::make_shared<Objects>(*m_arrangedFrom);
    objects->push_back(object);
    m_arranged.insert(m_arranged.begin() + index, quint32(objects->size() - 1));
    m_arrangedFrom = std::move(objects);
}

void ArrayController::insertObject(const Object &object, qsizetype arrangedIndex)
{
    const Objects selected = selectedObjects();
    const std::size_t fallback = firstSelectedPosition();
    auto position = m_content->values.end();
    if (arrangedIndex >= 0 && std::size_t(arrangedIndex) < m_arranged.size())
        position = std::find(m_content->values.begin(), m_content->values.end(),
                             Value(arrangedObjects()[std::size_t(arrangedIndex)]));
    m_content->values.insert(position, Value(object));
    arrange();
    if (const qsizetype index = arrangedIndexOf(object); index >= 0)
        select({std::size_t(index)}, fallback, false);
    else
        selectAgain(selected, fallback);
}

void ArrayController::removeObject(const Object &object)
{
    const auto position = std::find(m_content->values.begin(), m_content->values.end(), Value(object));
    if (position == m_content->values.end())
        return;
    const std::size_t fallback = firstSelectedPosition();
    const Objects selected = selectedObjects();
    m_content->values.erase(position);
    if (const qsizetype index = arrangedIndexOf(object); index >= 0)
        m_arranged.erase(m_arranged.begin() + index);
    selectAgain(selected, fallback);
}

void ArrayController::removeSelectedObjects()
{
    if (m_selection.empty())
        return;
    const std::size_t fallback = m_selection.front();
    std::unordered_set<const RefCounted *> removed;
    for (const std::size_t index : m_selection)
        removed.insert(arrangedObjects()[index].get());
    std::erase_if(m_content->values,
                  [&removed](const Value &value) { return removed.contains(value.sharedObject()); });
    std::erase_if(m_arranged,
                  [&](quint32 position) { return removed.contains((*m_arrangedFrom)[position].get()); });
    select({}, fallback, false);
}

Value ArrayController::valueForSelection(QStringView keyPath, bool *isMixed, Likeness alike) const
{
    SelectionValues::Outcome outcome;
    if (!m_selection.empty()) {
        const ArrangedObjects arranged = arrangedObjects();
        outcome = m_selectionValues.outcome(
            keyPath, alike, m_selection.size(),
            [&](std::size_t i) -> const Dictionary & { return *arranged[m_selection[i]]; });
    }
    if (isMixed)
        *isMixed = outcome.isMixed;
    return outcome.value;
}

void ArrayController::setValueForSelection(const Key &key, const Value &value)
{
    const quint64 formerChangeStamp = Dictionary::lastChangeStamp();
    for (const std::size_t index : m_selection)
        arrangedObjects()[index]->setValue(key, value);
    m_selectionValues.takeCommonValue(key, value, formerChangeStamp);
    noteChanges(std::vector(m_selection)); // A copy, since a view may change the selection meanwhile.
}

void ArrayController::setValues(const Key &key, const std::vector<std::pair<Object, Value>> &values)
{
    Objects objects;
    for (const auto &[object, value] : values) {
        object->setValue(key, value);
        objects.push_back(object);
    }
    noteChanges(positionsOf(objects));
}

void ArrayController::noteChange(const Object &object)
{
    noteChanges(positionsOf({object}));
}

void ArrayController::noteChanges(const std::vector<std::size_t> &arrangedIndexes)
{
    if (!arrangedIndexes.empty())
        Q_EMIT objectsChanged(arrangedIndexes);
}

} // namespace Foundation
