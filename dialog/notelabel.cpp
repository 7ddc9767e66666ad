#include "notelabel.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int padding = 3; ///< pixels between the text and the edge of its background
constexpr double readableContrast = 4.5;

/// The relative luminance of WCAG 2: 0 for black, 1 for white.
double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of WCAG 2: 1 for equal colors, 21 for black and white.
double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

NoteLabel::NoteLabel(const QString &text)
    : WrappedLabel(QStringLiteral("<font color=\"#0000FF\">%1</font>").arg(text)), m_plainText(text)
{
    setTextFormat(Qt::RichText);
    setMargin(padding);
}

QSize NoteLabel::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(m_plainText) + 2 * padding;
    return {width, heightForWidth(width)};
}

QSize NoteLabel::minimumSizeHint() const
{
    // Half of the text and room for a wrapped word.
    const int width = fontMetrics().horizontalAdvance(m_plainText) * 3 / 5 + 2 * padding;
    return {width, heightForWidth(width)};
}

void NoteLabel::paintEvent(QPaintEvent *event)
{
    if (contrast(Qt::blue, palette().color(QPalette::Window)) < readableContrast) {
        QPainter(this).fillRect(rect(), Qt::white);
    }
    WrappedLabel::paintEvent(event);
}
