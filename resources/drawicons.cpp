// Draws the dialog's images: drawicons FOLDER writes every image at 24 pixels and, as @2x, at 48.
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

bool write(const QString &fileName, int scale, void (*draw)(QPainter &))
{
    QImage image(size * scale, size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    draw(painter);
    painter.end();
    return image.save(fileName);
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QString folder = QGuiApplication::arguments().value(1, QStringLiteral("."));
    bool ok = true;
    const auto draw = [&](const QString &name, void (*drawing)(QPainter &)) {
        ok = write(folder + QLatin1Char('/') + name + QStringLiteral(".png"), 1, drawing) && ok;
        ok = write(folder + QLatin1Char('/') + name + QStringLiteral("@2x.png"), 2, drawing) && ok;
    };
    draw(QStringLiteral("hwcnfg"), drawRack);
    draw(QStringLiteral("folder"), drawFolder);
    draw(QStringLiteral("itemconfig"), drawSliders);
    return ok ? 0 : 1;
}
