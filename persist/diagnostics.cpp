#include "diagnostics.h"

#include "baseservices.h"

#include <QDebug>
#include <QTime>

void printDiagnostic(DiagnosticLine line, const QByteArray &bytes)
{
    QMessageLogger().debug() << QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"))
                             << ".\\simpleextendexportfunc.cpp" << static_cast<int>(line)
                             << byteArryDataToString(bytes, QString());
}
