#include "window/desktop/DesktopText.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>

using Foundation::Color;
using Foundation::TextAttributes;

namespace
{

// Font sizes of the toolkit are in 72nds of an inch, and an unscaled screen has 96 points per inch.
constexpr double PointsOfAnInch = 72.0;
constexpr double UnscaledPixelsOfAnInch = 96.0;

// Cached, because this is called for every cell that is drawn, mostly with the same family, and the list of
// families is long.
bool isInstalled(const QString &family)
{
    static QString lastFamily;
    static bool wasInstalled = false;
    static const auto forgetting = QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, qGuiApp,
                                                    [] { lastFamily = QString(); });
    Q_UNUSED(forgetting)
    if (lastFamily != family) {
        lastFamily = family;
        wasInstalled = QFontDatabase::hasFamily(family);
    }
    return wasInstalled;
}

} // namespace

QFont fontOfAttributes(const TextAttributes &attributes)
{
    QFont font = QGuiApplication::font();
    if (!attributes.fontFamily.isEmpty() && isInstalled(attributes.fontFamily))
        font.setFamily(attributes.fontFamily);
    if (attributes.fontSize > 0)
        font.setPointSizeF(attributes.fontSize * PointsOfAnInch / UnscaledPixelsOfAnInch);
    return font;
}

QColor colorOfComponents(const Color &color)
{
    return QColor::fromRgbF(float(color.red), float(color.green), float(color.blue), float(color.alpha));
}

Color componentsOfColor(const QColor &color)
{
    return {double(color.redF()), double(color.greenF()), double(color.blueF()), double(color.alphaF())};
}

double DesktopTextMeasurer::widthOfText(const QString &text, const TextAttributes &attributes) const
{
    return QFontMetricsF(fontOfAttributes(attributes)).horizontalAdvance(text);
}
