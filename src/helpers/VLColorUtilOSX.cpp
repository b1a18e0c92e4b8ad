#include "helpers/VLColorUtilOSX.h"

#include <algorithm>
#include <cmath>

using namespace Foundation;

Color VLColorUtilOSX::NSColorFromDict(const Ref<Dictionary> &dict)
{
    // Single precision is part of the contract: 0.1 comes back as the float next to it, so that a colour
    // compares equal to what earlier releases made of the same file.
    const auto component = [&](QStringView key) {
        const float number = dict ? dict->value(key).floatValue() : 0.0F;
        return std::isnan(number) ? 0.0 : double(std::clamp(number, 0.0F, 1.0F));
    };
    return {component(u"r"), component(u"g"), component(u"b"), component(u"a")};
}

Ref<Dictionary> VLColorUtilOSX::dictFromNSColor(const Color &color)
{
    auto dict = Dictionary::create();
    dict->setValue(u"r", color.red);
    dict->setValue(u"g", color.green);
    dict->setValue(u"b", color.blue);
    dict->setValue(u"a", color.alpha);
    return dict;
}
