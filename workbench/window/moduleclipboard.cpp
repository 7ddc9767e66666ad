#include "moduleclipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>

namespace {

constexpr auto streamVersion = QDataStream::Qt_5_15;

QString mimeType()
{
    return QStringLiteral("application/x-simpleextend-modules");
}

} // namespace

void copyToClipboard(const QByteArrayList &states)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << states;
    auto *data = new QMimeData;
    data->setData(mimeType(), bytes);
    QApplication::clipboard()->setMimeData(data);
}

bool clipboardHasModules()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    return data != nullptr && data->hasFormat(mimeType());
}

QByteArrayList clipboardModules()
{
    if (!clipboardHasModules()) {
        return {};
    }
    QDataStream stream(QApplication::clipboard()->mimeData()->data(mimeType()));
    stream.setVersion(streamVersion);
    QByteArrayList states;
    stream >> states;
    return stream.status() == QDataStream::Ok ? states : QByteArrayList();
}
