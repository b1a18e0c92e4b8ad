#include "lists/ReplacedObjects.h"

#include <algorithm>

namespace Foundation
{

void replaceObjects(const Array &former, const Array &present, const std::vector<Ref<Dictionary> *> &objects)
{
    if (objects.empty() || former.count() != present.count())
        return;
    struct Wanted
    {
        const RefCounted *object;
        Ref<Dictionary> *place;
    };
    std::vector<Wanted> wanted;
    wanted.reserve(objects.size());
    for (Ref<Dictionary> *place : objects)
        wanted.push_back({place->get(), place});
    std::ranges::sort(wanted, {}, &Wanted::object);
    for (qsizetype i = 0; i < former.count(); ++i) {
        const Ref<Dictionary> successor = present.at(i).dictionary();
        if (!successor)
            continue;
        // Without equal_range, since the clang of the fuzz targets cannot compile code with its result.
        const RefCounted *const object = former.at(i).sharedObject();
        for (auto entry = std::ranges::lower_bound(wanted, object, {}, &Wanted::object);
             entry != wanted.end() && entry->object == object; ++entry)
            *entry->place = successor;
    }
}

} // namespace Foundation
