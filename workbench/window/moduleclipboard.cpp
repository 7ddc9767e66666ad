#include "moduleclipboard.h"

#include "modulestream.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>

namespace {

QString mimeType()
{
    return QStringLiteral("application/x-simpleextend-stored-modules");
}

} // namespace

void copyToClipboard(const CopiedModules &copied)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << copied.areCut;
    writeModules(stream, copied.modules);
    auto *data = new QMimeData;
    data->setData(mimeType(), bytes);
    QApplication::clipboard()->setMimeData(data);
}

bool clipboardHasModules()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    return data != nullptr && data->hasFormat(mimeType());
}

CopiedModules clipboardModules()
{
    if (!clipboardHasModules()) {
        return {};
    }
    QDataStream stream(QApplication::clipboard()->mimeData()->data(mimeType()));
    CopiedModules copied;
    stream >> copied.areCut;
    return readModules(stream, copied.modules) ? copied : CopiedModules();
}
