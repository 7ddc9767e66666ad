// A module catalog in a temporary folder, which the simulated host uses while the object lives.
#pragma once

#include <QtTest>

class CatalogFolder {
public:
    CatalogFolder()
    {
        QDir folder(m_folder.path());
        QVERIFY(folder.mkpath(QStringLiteral("6")) && folder.mkpath(QStringLiteral("9")));
        qputenv("SIMHOST_COMPONENTS", QFile::encodeName(m_folder.path()));
        writeFile(QStringLiteral("9/module.cmp"), "module");
    }
    ~CatalogFolder() { qunsetenv("SIMHOST_COMPONENTS"); }
    Q_DISABLE_COPY_MOVE(CatalogFolder)

    /// Gives the whole path.
    QString writeFile(const QString &path, const QByteArray &content)
    {
        QFile file(m_folder.filePath(path));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(path));
        }
        return file.fileName();
    }
    void remove(const QString &path) { QVERIFY(QFile::remove(m_folder.filePath(path))); }

    void writeDescription(quint32 typeCode, const QByteArray &content)
    {
        const QString name = QString::number(typeCode, 16).toUpper().rightJustified(8, QLatin1Char('0'));
        writeFile(QStringLiteral("6/hw%1.met").arg(name), content);
    }
    /// A whole entry whose component file exists.
    void writeModule(quint32 typeCode, quint32 moduleInfo, const QByteArray &moreLines = {})
    {
        writeDescription(typeCode, "[MODULE START]\nObjName=Module\nServerFile=module.cmp\nObjID=" +
                                       QByteArray::number(typeCode, 16) + "\nModuleInfo=" +
                                       QByteArray::number(moduleInfo, 16) + '\n' + moreLines + "[END]\n");
    }

private:
    QTemporaryDir m_folder;
};
