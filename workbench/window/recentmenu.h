// The menu of the projects that were opened or saved last.
#pragma once

#include <QMenu>

class RecentMenu : public QMenu {
    Q_OBJECT
public:
    using QMenu::QMenu;

    /// Absolute paths, the latest first.
    const QStringList &files() const { return m_files; }
    void setFiles(const QStringList &files);
    /// Puts a file first; the oldest beyond eight goes.
    void add(const QString &path);
    void remove(const QString &path);

signals:
    void fileChosen(const QString &path);

private:
    QStringList m_files;
};
