// The language of the program, of the plug-in and of the simulated host.
#pragma once

#include <QLocale>

#include <memory>
#include <vector>

class QTranslator;

/// Installs translators; they go with this object.
class InterfaceLanguage {
public:
    InterfaceLanguage();
    ~InterfaceLanguage();
    InterfaceLanguage(const InterfaceLanguage &) = delete;
    InterfaceLanguage &operator=(const InterfaceLanguage &) = delete;

    /// Chinese, or English for any other language. A translation file that is not there leaves its texts English.
    void set(QLocale::Language language);
    QLocale::Language get() const { return m_language; }

private:
    void install(const QString &name, const QString &folder);

    QLocale::Language m_language = QLocale::English;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
