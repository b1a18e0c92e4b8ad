#include "foundation/ReplacedObjects.h"

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
        for (const Wanted &entry :
             std::ranges::equal_range(wanted, former.at(i).sharedObject(), {}, &Wanted::object))
            *entry.place = successor;
    }
}

} // namespace Foundation
