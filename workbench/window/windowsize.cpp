#include "windowsize.h"

#include <QScreen>
#include <QWidget>

void resizeToFit(QWidget &window, QSize size)
{
    constexpr QSize frame(16, 48); // px; the real frame is known only after the window was shown
    const QScreen *screen = window.window()->screen();
    window.resize(screen == nullptr ? size : size.boundedTo(screen->availableSize() - frame));
}

QString titleText(const QString &text)
{
    const QString mark = QStringLiteral("[*]");
    return QString(text).replace(mark, mark + mark);
}
