#pragma once

#include "values/Array.h"
#include "values/Dictionary.h"

#include <memory>
#include <vector>

// The records that entries of an undo stack hold. Deciphering makes new objects of all records and categories
// while the stack keeps its entries, which from then on mean the new objects: undo and redo then work on what
// the list shows, and never bring a record a second time or with a category that is not in the list.
class UndoneRecords
{
public:
    using Record = Foundation::Ref<Foundation::Dictionary>;
    // What an entry keeps; reads as the record that it means at present.
    using Handle = std::shared_ptr<const Record>;

    Handle hold(const Record &record);
    // `records` and `categories` hold in place of each object of `formerRecords` a new one. A record that
    // stands in neither, a deleted one, keeps its object and gets its category of those now there by its id,
    // the first one where the id is unknown, as records do when they are read.
    void replace(const Foundation::Array &formerRecords, const Foundation::Array &records,
                 const Foundation::Array &categories);

private:
    std::vector<std::weak_ptr<Record>> m_handles;
};
