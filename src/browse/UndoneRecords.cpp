#include "browse/UndoneRecords.h"

#include "core/DecryptPipeline.h"
#include "core/RecordModel.h"
#include "lists/ReplacedObjects.h"

#include <algorithm>

using Foundation::Array;

UndoneRecords::Handle UndoneRecords::hold(const Record &record)
{
    std::erase_if(m_handles, [](const auto &handle) { return handle.expired(); });
    const auto handle = std::make_shared<Record>(record);
    m_handles.push_back(handle);
    return handle;
}

void UndoneRecords::replace(const Array &formerRecords, const Array &records, const Array &categories)
{
    std::vector<std::shared_ptr<Record>> handles;
    std::vector<Record *> held;
    for (const auto &handle : m_handles) {
        if (auto alive = handle.lock()) {
            held.push_back(alive.get());
            handles.push_back(std::move(alive));
        }
    }
    Foundation::replaceObjects(formerRecords, records, held);
    if (categories.values.empty())
        return;
    for (const Record *record : held) {
        const auto former = (*record)->value(RecordKey::categoryPtr).dictionary();
        const auto isThere = [&former](const auto &entry) { return entry.sharedObject() == former.get(); };
        if (former && std::ranges::any_of(categories.values, isThere))
            continue;
        const qint64 id = former ? former->value(CategoryKey::cat_uniqueID).longValue() : 0;
        const auto category = DecryptPipeline::catInArray(categories, id);
        (*record)->setValue(RecordKey::categoryPtr, category ? category : categories.at(0).dictionary());
    }
}
