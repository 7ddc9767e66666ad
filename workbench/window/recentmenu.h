// The menu of the projects that were opened or saved recently.
#pragma once

#include <QMenu>

class RecentMenu : public QMenu {
    Q_OBJECT
public:
    using QMenu::QMenu;

    /// Absolute paths, the most recent first.
    const QStringList &files() const { return m_files; }
    void setFiles(const QStringList &files);
    /// Puts a file first. Removes the oldest file when there are more than eight.
    void add(const QString &path);
    void remove(const QString &path);

signals:
    void filesChanged(const QStringList &files);
    void fileChosen(const QString &path);

private:
    QStringList m_files;
};
