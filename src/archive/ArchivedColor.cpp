#include "archive/ArchivedColor.h"

#include <QList>

#include <algorithm>
#include <cmath>

namespace Foundation
{

namespace
{

// The number of components without the opacity.
qsizetype componentCount(ArchivedColorSpace space)
{
    switch (space) {
    case ArchivedColorSpace::CalibratedRGB:
    case ArchivedColorSpace::DeviceRGB:
        return 3;
    case ArchivedColorSpace::CalibratedWhite:
    case ArchivedColorSpace::DeviceWhite:
        return 1;
    case ArchivedColorSpace::DeviceCMYK:
        return 4;
    case ArchivedColorSpace::Named:
        break;
    }
    return -1;
}

// Returns an empty list unless all words are numbers.
QList<double> numbersIn(const QByteArray &text)
{
    QList<double> numbers;
    for (const QByteArray &word : text.simplified().split(' ')) {
        bool isNumber = false;
        const double number = word.toDouble(&isNumber); // Does not depend on the locale.
        if (!isNumber || !std::isfinite(number))
            return {};
        numbers.append(std::clamp(number, 0.0, 1.0));
    }
    return numbers;
}

} // namespace

std::optional<Color> colorOfComponents(ArchivedColorSpace space, const QByteArray &text)
{
    constexpr std::size_t LongestText = 512;
    const std::size_t length = qstrnlen(text.constData(), std::size_t(text.size()));
    if (length > LongestText)
        return std::nullopt;
    const QList<double> numbers = numbersIn(text.left(qsizetype(length)));
    const qsizetype count = componentCount(space);
    if (count < 0 || (numbers.size() != count && numbers.size() != count + 1))
        return std::nullopt;
    const double alpha = numbers.value(count, 1);
    if (count == 1)
        return Color{numbers[0], numbers[0], numbers[0], alpha};
    if (count == 3)
        return Color{numbers[0], numbers[1], numbers[2], alpha};
    const double light = 1 - numbers[3];
    return Color{(1 - numbers[0]) * light, (1 - numbers[1]) * light, (1 - numbers[2]) * light, alpha};
}

QByteArray componentsOfColor(const Color &color)
{
    QByteArrayList texts;
    for (const double component : {color.red, color.green, color.blue, color.alpha})
        texts.append(QByteArray::number(component, 'g', 17));
    return texts.join(' ');
}

} // namespace Foundation
