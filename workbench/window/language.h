// The language of the program, of the plug-in and of the simulated host.
#pragma once

#include <QLocale>

#include <memory>
#include <vector>

class QTranslator;

/// Installs translators and removes them in its destructor.
class InterfaceLanguage {
public:
    InterfaceLanguage();
    ~InterfaceLanguage();
    InterfaceLanguage(const InterfaceLanguage &) = delete;
    InterfaceLanguage &operator=(const InterfaceLanguage &) = delete;

    /// Sets Chinese, or English for any other language. Texts without a translation file stay English.
    void set(QLocale::Language language);
    QLocale::Language get() const { return m_language; }

private:
    void install(const QString &name, const QString &folder);

    QLocale::Language m_language = QLocale::English;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
