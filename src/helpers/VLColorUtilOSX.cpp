#include "helpers/VLColorUtilOSX.h"

#include <algorithm>
#include <cmath>

using namespace Foundation;

Color VLColorUtilOSX::NSColorFromDict(const Ref<Dictionary> &dict)
{
    // Required: with single precision, 0.1 becomes the nearest float, so that a colour is equal to the one
    // that earlier releases made of the same file.
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
