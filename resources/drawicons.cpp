// Draws the images of the dialog and the icon of the workbench: drawicons IMAGES ICONS writes to the folder IMAGES
// every image at 24 pixels and, as @2x, at 48, and to the folder ICONS the icon as an icon theme has it.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <array>

namespace {

constexpr int size = 24; // the coordinates below are pixels of the small image

const QColor outline(0x3b, 0x4a, 0x5a);
const QColor body(0xd9, 0xe2, 0xec);
const QColor shade(0x9f, 0xb1, 0xc4);
const QColor accent(0x2b, 0x7d, 0xd1);
const QColor good(0x3d, 0xa3, 0x5d);
const QColor paper(0xf3, 0xc5, 0x5c);
const QColor paperShade(0xd9, 0x9c, 0x2b);

void box(QPainter &painter, const QRectF &rect, const QColor &fill, const QColor &edge, qreal radius = 1)
{
    painter.setPen(QPen(edge, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(rect, radius, radius);
}

void bar(QPainter &painter, const QRectF &rect, const QColor &fill)
{
    painter.fillRect(rect, fill);
}

/// A rack: controller and two modules on a rail.
void drawRack(QPainter &painter)
{
    bar(painter, {1, 10, 22, 4}, shade);
    box(painter, {2.5, 3.5, 7, 17}, accent, outline);
    bar(painter, {4, 6, 4, 3}, body);
    bar(painter, {4, 16, 2, 2}, good);
    for (const qreal x : {9.5, 15.5}) {
        box(painter, {x, 3.5, 6, 17}, body, outline);
        bar(painter, {x + 1.5, 6, 3, 1}, outline);
        bar(painter, {x + 1.5, 8, 3, 1}, outline);
        bar(painter, {x + 1.5, 16, 3, 2}, shade);
    }
}

/// The rack in the 16 pixels in the middle, because a line thinner than a pixel is blurred.
void drawSmallRack(QPainter &painter)
{
    bar(painter, {4, 10, 16, 3}, shade);
    box(painter, {5.5, 5.5, 5, 13}, accent, outline);
    bar(painter, {7, 7, 2, 2}, body);
    bar(painter, {7, 15, 2, 2}, good);
    for (const qreal x : {10.5, 14.5}) {
        box(painter, {x, 5.5, 4, 13}, body, outline);
        bar(painter, {x + 0.5, 8, 3, 1}, outline);
        bar(painter, {x + 0.5, 15, 3, 2}, shade);
    }
}

void drawFolder(QPainter &painter)
{
    box(painter, {2.5, 4.5, 8, 6}, paperShade, paperShade.darker(130));
    box(painter, {2.5, 6.5, 19, 13}, paperShade, paperShade.darker(130));
    box(painter, {2.5, 9.5, 19, 10}, paper, paperShade.darker(130));
}

/// A sheet with three sliders.
void drawSliders(QPainter &painter)
{
    box(painter, {3.5, 2.5, 17, 19}, QColor(0xfb, 0xfc, 0xfe), outline, 2);
    const std::array<qreal, 3> knobs = {13, 7, 11};
    qreal y = 6;
    for (const qreal x : knobs) {
        bar(painter, {6, y + 1, 12, 1}, shade);
        bar(painter, {6, y + 1, x - 6, 1}, accent);
        box(painter, {x - 0.5, y - 0.5, 3, 4}, accent, accent.darker(140));
        y += 5;
    }
}

/// Enlarges the drawing to the size of the image. A smaller image shows the middle of the drawing.
bool write(const QString &fileName, int pixels, void (*draw)(QPainter &))
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(pixels / 2.0, pixels / 2.0);
    const qreal scale = qMax(1.0, qreal(pixels) / size);
    painter.scale(scale, scale);
    painter.translate(-size / 2.0, -size / 2.0);
    draw(painter);
    painter.end();
    return image.save(fileName);
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        return 2;
    }
    bool ok = true;
    const auto draw = [&](const QString &name, void (*drawing)(QPainter &)) {
        ok = write(arguments[1] + QLatin1Char('/') + name + QStringLiteral(".png"), size, drawing) && ok;
        ok = write(arguments[1] + QLatin1Char('/') + name + QStringLiteral("@2x.png"), 2 * size, drawing) && ok;
    };
    draw(QStringLiteral("hwcnfg"), drawRack);
    draw(QStringLiteral("folder"), drawFolder);
    draw(QStringLiteral("itemconfig"), drawSliders);
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(arguments[2]).arg(pixels);
        ok = QDir().mkpath(folder) &&
             write(folder + QStringLiteral("/simpleextend-workbench.png"), pixels,
                   pixels < 22 ? drawSmallRack : drawRack) &&
             ok;
    }
    return ok ? 0 : 1;
}
