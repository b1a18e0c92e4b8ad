#pragma once

#include "values/Array.h"
#include "values/Dictionary.h"

#include <memory>
#include <vector>

// The records to which the entries of an undo stack refer. Deciphering makes new objects for all records and
// categories, but the stack keeps its entries. These handles let the entries refer to the new objects, so
// that undo and redo change what the list shows, never add a record twice and never add one with a category
// that is not in the list.
class UndoneRecords
{
public:
    using Record = Foundation::Ref<Foundation::Dictionary>;
    // Refers to the present object of a record. An entry keeps a handle.
    using Handle = std::shared_ptr<const Record>;

    Handle hold(const Record &record);
    // Replaces each record of `formerRecords` by the one at the same position of `records`. A deleted record,
    // which is in neither, keeps its object and gets its category from `categories` by its id, or the first
    // category if the id is unknown, as at reading.
    void replace(const Foundation::Array &formerRecords, const Foundation::Array &records,
                 const Foundation::Array &categories);

private:
    std::vector<std::weak_ptr<Record>> m_handles;
};
