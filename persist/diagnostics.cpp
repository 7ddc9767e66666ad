#include "diagnostics.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QTime>

void writeDiagnostic(DiagnosticLine line, const ByteReader &bytes)
{
    if (!QLoggingCategory::defaultCategory()->isDebugEnabled()) {
        return;
    }
    QMessageLogger().debug() << QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"))
                             << ".\\simpleextendexportfunc.cpp" << static_cast<int>(line)
                             << byteArryDataToString(bytes.rest(), QString());
}
