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

// List of dictionaries as a window shows it: the content, which the controller shares with its owner,
// arranged (filtered and sorted), and the selection in it.
//
// What is added gets selected; the selection stays with its objects over a rearrangement; as long as there
// are objects, it is not left empty. Edits of a shown value go through setValue here, so that every view
// hears of them. Subclasses narrow the list in arrangedPositions. Main thread only.
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

    // Shares the array. Entries that are no dictionaries are passed over in showing and never touched.
    void setContent(const Ref<Array> &content);
    // Takes an array that was read anew and holds a new object at each place: the selection stays at its
    // places.
    void replaceContent(const Ref<Array> &content);
    const Ref<Array> &content() const { return m_content; }

    // Until the list is arranged anew.
    ArrangedObjects arrangedObjects() const { return {*m_arrangedFrom, m_arranged}; }
    // Positions in arrangedObjects, ascending.
    const std::vector<std::size_t> &selectionIndexes() const { return m_selection; }
    // The first selected position, -1 without a selection.
    qsizetype selectionIndex() const;
    // Tells selections apart: the number changes whenever other objects are selected, and stays the same
    // while the same objects stay selected, wherever the list shows them.
    quint64 selectionStamp() const { return m_selectionStamp; }
    Objects selectedObjects() const;
    // True while something is selected.
    bool canRemove() const { return !m_selection.empty(); }
    bool selectsOneObject() const { return m_selection.size() == 1; }
    bool holdsOneObject() const { return m_arranged.size() == 1; }
    // -1 if the object is not shown.
    qsizetype arrangedIndexOf(const Object &object) const;
    // Where these are shown, ascending; those that are not are left out.
    std::vector<std::size_t> positionsOf(const Objects &objects) const;

    void setSelectionIndex(qsizetype index);
    // Positions beyond the end are left out.
    void setSelectionIndexes(std::vector<std::size_t> indexes);

    const std::vector<SortDescriptor> &sortDescriptors() const { return m_sortOrder.descriptors(); }
    void setSortDescriptors(std::vector<SortDescriptor> descriptors);

    // The objects to show out of `objects`, in the order of the sort descriptors: of those that
    // arrangedPositions() lets through.
    Objects arrangeObjects(const Objects &objects);
    void rearrangeObjects();

    // A new object, not yet in the content. Null if none can be made.
    virtual Object newObject();
    // Appends to the content and selects. The object takes its place in the list by the sort order, if the
    // filters let it through. Nothing else in the list moves, comes or goes.
    void addObject(const Object &object);
    // Inserts into the content in front of the object that is shown at `index`, or at the end, rearranges and
    // selects.
    void insertObject(const Object &object, qsizetype arrangedIndex);
    // Removes the object from content and list, whether it is shown or not, without rearranging.
    virtual void removeObject(const Object &object);
    // Removes the selected objects, without rearranging.
    void removeSelectedObjects();

    // The dictionaries of the content, in its order.
    const Objects &contentObjects() { return *updatedContentObjects(); }

    using Likeness = Foundation::Likeness;
    // The value under a key path of the selected objects: of the first if all of them agree, by the likeness
    // given or exactly, otherwise nothing with *isMixed set. Null without a selection.
    Value valueForSelection(QStringView keyPath, bool *isMixed = nullptr, Likeness alike = nullptr) const;
    // Sets a value of every selected object and tells the views.
    void setValueForSelection(const Key &key, const Value &value);
    // The same for what the user put into a control.
    virtual void takeInputForSelection(const Key &key, const Value &value)
    {
        setValueForSelection(key, value);
    }
    // Sets each object's value and tells the views of those that are shown.
    void setValues(const Key &key, const std::vector<std::pair<Object, Value>> &values);
    // Nothing ever waits to be taken over: fields write at every keystroke.
    bool commitEditing() const { return true; }
    // Tells the views that something in the object has changed.
    void noteChange(const Object &object);

Q_SIGNALS:
    // The arranged list is another one; the selection may be.
    void arrangedObjectsChanged();
    void selectionChanged();
    // Values in the objects at these arranged positions, ascending, have changed. Once for all objects that
    // one edit changes.
    void objectsChanged(const std::vector<std::size_t> &arrangedIndexes);

protected:
    using Positions = SortOrder::Positions;

    // The places of the objects to show, in the order in which they are shown. Here: of all of them.
    virtual Positions arrangedPositions(const Objects &objects);
    // Puts ascending places in the order of the sort descriptors.
    Positions sorted(const Objects &objects, Positions positions);
    static Objects objectsAt(const Objects &objects, const Positions &positions);

private:
    void arrange();
    // Selects these positions of a new arrangement, or, if there are none, what stands at the fallback, and
    // tells the views.
    void select(std::vector<std::size_t> positions, std::size_t fallbackIndex, bool isSameSelection);
    // The same for what is left of the former selection.
    void selectAgain(const Objects &former, std::size_t fallbackIndex);
    std::size_t firstSelectedPosition() const { return m_selection.empty() ? 0 : m_selection.front(); }
    // Into the list as it stands, `m_arrangedFrom` included.
    void showAtItsPlace(const Object &object);
    const std::shared_ptr<const Objects> &updatedContentObjects();
    void noteChanges(const std::vector<std::size_t> &arrangedIndexes);

    Ref<Array> m_content = Array::create();
    // Of the content as it stood when it was looked at last, and when it was arranged last: the same, mostly.
    std::shared_ptr<const Objects> m_contentObjects = std::make_shared<Objects>();
    std::shared_ptr<const Objects> m_arrangedFrom = m_contentObjects;
    Positions m_arranged;
    std::vector<std::size_t> m_selection;
    mutable SelectionValues m_selectionValues;
    quint64 m_selectionStamp = 0;
    SortOrder m_sortOrder;
};

} // namespace Foundation
