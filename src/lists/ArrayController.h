#pragma once

#include "lists/ArrangedObjects.h"
#include "lists/SelectionValues.h"
#include "lists/SortOrder.h"
#include "values/Array.h"

#include <QObject>

#include <memory>
#include <vector>

namespace Foundation
{

// A list of dictionaries as a window shows it: the content, which the controller shares with its owner, the
// arrangement (which objects are shown, and in which order), and the selection.
//
// An added object gets selected. A rearrangement keeps the same objects selected; if none of them is shown
// any more, another object is selected, if there is one. Edits of values that are on the screen must go
// through the setters of this class, because dictionaries send no notifications. Subclasses filter the list
// in arrangedPositions(). Main thread only.
class ArrayController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY selectionChanged)
    Q_PROPERTY(bool hasSelection READ canRemove NOTIFY selectionChanged)
    Q_PROPERTY(bool selectsOneObject READ selectsOneObject NOTIFY selectionChanged)
    Q_PROPERTY(bool holdsOneObject READ holdsOneObject NOTIFY arrangedObjectsChanged)

public:
    using Object = Ref<Dictionary>;
    using Objects = std::vector<Object>;

    explicit ArrayController(QObject *parent = nullptr);

    // Shares the array. Entries that are no dictionaries are not shown and not changed.
    void setContent(const Ref<Array> &content);
    // Replaces the content by an array that was read again and has a new object at each position. The same
    // positions stay selected.
    void replaceContent(const Ref<Array> &content);
    const Ref<Array> &content() const { return m_content; }

    // The shown objects. Valid until the list is rearranged.
    ArrangedObjects arrangedObjects() const { return {*m_arrangedFrom, m_arranged}; }
    // Positions in arrangedObjects(), in ascending order.
    const std::vector<std::size_t> &selectionIndexes() const { return m_selection; }
    // The first selected position, -1 without a selection.
    qsizetype selectionIndex() const;
    // A number that changes whenever other objects are selected, and stays the same while the same objects
    // are selected, even if their positions change.
    quint64 selectionStamp() const { return m_selectionStamp; }
    Objects selectedObjects() const;
    // True if at least one object is selected.
    bool canRemove() const { return !m_selection.empty(); }
    bool selectsOneObject() const { return m_selection.size() == 1; }
    bool holdsOneObject() const { return m_arranged.size() == 1; }
    // The position of an object in arrangedObjects(), or -1 if it is not shown.
    qsizetype arrangedIndexOf(const Object &object) const;
    // The positions of those objects that are shown, in ascending order.
    std::vector<std::size_t> positionsOf(const Objects &objects) const;

    void setSelectionIndex(qsizetype index);
    // Ignores positions beyond the end.
    void setSelectionIndexes(std::vector<std::size_t> indexes);

    const std::vector<SortDescriptor> &sortDescriptors() const { return m_sortOrder.descriptors(); }
    void setSortDescriptors(std::vector<SortDescriptor> descriptors);

    // Those of `objects` that arrangedPositions() lets through, in the order of the sort descriptors. Changes
    // nothing. Prescribed; no caller yet.
    Objects arrangeObjects(const Objects &objects);
    void rearrangeObjects();

    // Makes an object that is not yet in the content. Null if none can be made.
    virtual Object newObject();
    // Appends the object to the content. If the filters let it through, it is shown at its position in the
    // sort order and selected. The rest of the list is not rearranged.
    void addObject(const Object &object);
    // Inserts the object into the content before the object that is shown at `arrangedIndex`, or at the end
    // if there is none, rearranges the list and selects the object.
    void insertObject(const Object &object, qsizetype arrangedIndex);
    // Removes the object from the content, and from the list if it is shown. The rest of the list is not
    // rearranged.
    virtual void removeObject(const Object &object);
    // Removes the selected objects. The rest of the list is not rearranged.
    void removeSelectedObjects();

    // The dictionaries of the content, in the order of the content.
    const Objects &contentObjects() { return *updatedContentObjects(); }

    using Likeness = Foundation::Likeness;
    // The value of the selected objects under a key path: that of the first object if all values are alike
    // (by default: equal), otherwise Null, and *isMixed is set to true. Null without a selection. `isMixed`
    // may be null.
    Value valueForSelection(QStringView keyPath, bool *isMixed = nullptr, Likeness alike = nullptr) const;
    // Sets the value in every selected object and notifies the views.
    void setValueForSelection(const Key &key, const Value &value);
    // The same for a value that the user entered in a control.
    virtual void takeInputForSelection(const Key &key, const Value &value)
    {
        setValueForSelection(key, value);
    }
    // Sets a value in each of these objects and notifies the views of the shown ones.
    void setValues(const Key &key, const std::vector<std::pair<Object, Value>> &values);
    // Always true: fields write at every keystroke, so there is never a pending edit. Prescribed; no caller
    // yet.
    bool commitEditing() const { return true; }
    // Notifies the views that the object has changed.
    void noteChange(const Object &object);

Q_SIGNALS:
    // The list of shown objects has changed, and perhaps the selection.
    void arrangedObjectsChanged();
    void selectionChanged();
    // The objects at these positions, in ascending order, have changed. Sent once for all objects that one
    // edit changes.
    void objectsChanged(const std::vector<std::size_t> &arrangedIndexes);

protected:
    using Positions = SortOrder::Positions;

    // The positions in `objects` of the objects to show, in the order to show. This implementation shows all.
    virtual Positions arrangedPositions(const Objects &objects);
    // Sorts ascending positions by the sort descriptors.
    Positions sorted(const Objects &objects, Positions positions);
    static Objects objectsAt(const Objects &objects, const Positions &positions);

private:
    void arrange();
    // Selects these positions of a new arrangement, or the fallback position if there are none, and notifies
    // the views.
    void select(std::vector<std::size_t> positions, std::size_t fallbackIndex, bool isSameSelection);
    // The same for the objects of the former selection that are still shown.
    void selectAgain(const Objects &former, std::size_t fallbackIndex);
    std::size_t firstSelectedPosition() const { return m_selection.empty() ? 0 : m_selection.front(); }
    // Adds an object to the present arrangement and to `m_arrangedFrom`.
    void showAtItsPlace(const Object &object);
    const std::shared_ptr<const Objects> &updatedContentObjects();
    void noteChanges(const std::vector<std::size_t> &arrangedIndexes);

    Ref<Array> m_content = Array::create();
    // The objects of the content at the last look and at the last arrangement. Usually they are the same
    // list.
    std::shared_ptr<const Objects> m_contentObjects = std::make_shared<Objects>();
    std::shared_ptr<const Objects> m_arrangedFrom = m_contentObjects;
    Positions m_arranged;
    std::vector<std::size_t> m_selection;
    mutable SelectionValues m_selectionValues;
    quint64 m_selectionStamp = 0;
    SortOrder m_sortOrder;
};

} // namespace Foundation
