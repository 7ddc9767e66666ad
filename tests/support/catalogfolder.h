// A module catalog in a temporary folder.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// The simulated host uses the catalog while the object exists. A file error ends the program.
class CatalogFolder {
public:
    CatalogFolder()
    {
        QDir(path()).mkdir(QStringLiteral("6"));
        QDir(path()).mkdir(QStringLiteral("9"));
        writeFile(QStringLiteral("9/module.cmp"), "module");
        qputenv("SIMHOST_COMPONENTS", QFile::encodeName(m_folder.path()));
    }
    ~CatalogFolder() { qunsetenv("SIMHOST_COMPONENTS"); }
    Q_DISABLE_COPY_MOVE(CatalogFolder)

    /// Returns the path of a file or folder of the catalog.
    QString path(const QString &name = {}) const { return QDir(m_folder.path()).filePath(name); }

    /// Returns the path of the file.
    QString writeFile(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(file.fileName()));
        }
        return file.fileName();
    }

    void writeDescription(quint32 typeCode, const QByteArray &content) const
    {
        const QString code = QString::number(typeCode, 16).toUpper().rightJustified(8, QLatin1Char('0'));
        writeFile(QStringLiteral("6/hw%1.met").arg(code), content);
    }
    /// Writes a complete entry whose component file exists.
    void writeModule(quint32 typeCode, quint32 moduleInfo, const QByteArray &moreLines = {}) const
    {
        writeDescription(typeCode, "[MODULE START]\nObjName=Module\nServerFile=module.cmp\nObjID=" +
                                       QByteArray::number(typeCode, 16) + "\nModuleInfo=" +
                                       QByteArray::number(moduleInfo, 16) + '\n' + moreLines + "[END]\n");
    }

private:
    QTemporaryDir m_folder;
};
