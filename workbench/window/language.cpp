#include "language.h"

#include "simulatedhelp.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

InterfaceLanguage::InterfaceLanguage() = default;
InterfaceLanguage::~InterfaceLanguage() = default;

void InterfaceLanguage::set(QLocale::Language language)
{
    m_language = language == QLocale::Chinese ? QLocale::Chinese : QLocale::English;
    m_translators.clear();
    simulatedhost::setLanguage(m_language == QLocale::Chinese ? simulatedhost::Language::Local
                                                              : simulatedhost::Language::English);
    const QDir programFolder(QCoreApplication::applicationDirPath());
    const QString ours = programFolder.absoluteFilePath(QStringLiteral("../share/simpleextend/translations"));
    if (m_language == QLocale::English) {
        install(QStringLiteral("workbench_en"), ours); // for plurals
        return;
    }
    install(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install(QStringLiteral("simpleextend_zh_CN"), ours);
    install(QStringLiteral("workbench_zh_CN"), ours);
}

void InterfaceLanguage::install(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(name, folder) && QCoreApplication::installTranslator(translator.get())) {
        m_translators.push_back(std::move(translator));
    }
}
