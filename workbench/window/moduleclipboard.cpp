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

QByteArrayList clipboardModules()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    if (data == nullptr || !data->hasFormat(mimeType())) {
        return {};
    }
    QDataStream stream(data->data(mimeType()));
    stream.setVersion(streamVersion);
    QByteArrayList states;
    stream >> states;
    return stream.status() == QDataStream::Ok ? states : QByteArrayList();
}
