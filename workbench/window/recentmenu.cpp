#include "recentmenu.h"

#include <QFileInfo>

namespace {

constexpr int fileCount = 8;

} // namespace

void RecentMenu::setFiles(const QStringList &files)
{
    m_files = files.mid(0, fileCount);
    clear();
    for (int i = 0; i < m_files.size(); ++i) {
        const QString path = m_files.at(i);
        // A single ampersand would make the next character a shortcut.
        const QString name = QFileInfo(path).fileName().replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction *action = addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(name));
        action->setStatusTip(path);
        connect(action, &QAction::triggered, this, [this, path] { emit fileChosen(path); });
    }
    setEnabled(!m_files.isEmpty());
}

void RecentMenu::add(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList files = m_files;
    files.removeAll(absolute);
    files.prepend(absolute);
    setFiles(files);
    emit filesChanged(m_files);
}

void RecentMenu::remove(const QString &path)
{
    QStringList files = m_files;
    files.removeAll(QFileInfo(path).absoluteFilePath());
    setFiles(files);
    emit filesChanged(m_files);
}
