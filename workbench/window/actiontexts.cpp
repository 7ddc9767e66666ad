#include "actiontexts.h"

#include <QRegularExpression>

QString plainText(const QAction &action)
{
    static const QRegularExpression mnemonicAtEnd(QStringLiteral("\\(&\\w\\)")); // in Chinese texts
    return action.text().remove(mnemonicAtEnd).remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

QString shortcutsText(const QAction &action)
{
    QStringList texts;
    for (const QKeySequence &shortcut : action.shortcuts()) {
        texts += shortcut.toString(QKeySequence::NativeText);
    }
    return texts.join(QStringLiteral(", "));
}
