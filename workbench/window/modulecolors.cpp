#include "modulecolors.h"

#include <QPalette>

#include <array>

namespace {

constexpr std::array<int, 5> familyHues{{212, 24, 130, 285, 45}};
constexpr int shadeCount = 3;

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor moduleColor(CatalogFamily family, Place place, const QPalette &palette)
{
    const int hue = familyHues[static_cast<std::size_t>(family)];
    const int saturation = family == CatalogFamily::Other ? 12 : 130;
    const int shade = (place.slot + place.rack) % shadeCount;
    return isDark(palette) ? QColor::fromHsl(hue, saturation, 92 + 24 * shade)
                           : QColor::fromHsl(hue, saturation + 40, 205 - 26 * shade);
}

QColor refusalColor(const QPalette &palette)
{
    return isDark(palette) ? QColor(255, 110, 100) : QColor(190, 20, 20);
}

QColor fadedColor(const QPalette &palette)
{
    const QColor &text = palette.color(QPalette::Text);
    const QColor &base = palette.color(QPalette::Base);
    return QColor::fromRgb((2 * text.red() + base.red()) / 3, (2 * text.green() + base.green()) / 3,
                           (2 * text.blue() + base.blue()) / 3);
}
