#include "hostfunctions.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <array>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <vector>

namespace {

struct HostLibraries {
    std::array<QLibrary, 2> libraries;
    std::vector<const HostSymbol *> symbols;
};

HostLibraries &hostLibraries()
{
    static HostLibraries theLibraries;
    return theLibraries;
}

// Not called: a widget needs a display, and the online help is a window of the host.
const HostSymbol startHelpSys("_Z12startHelpSysRK7QString");
const HostSymbol lineEdit("_ZN9MLineEditC1EP7QWidget");
const HostSymbol comboBox("_ZN11MComboBoxExC1EP7QWidget");
const HostSymbol spinBox("_ZN10MSpinBoxExC1EP7QWidget");
const HostSymbol deadbandSpinBox("_ZN16MSpinBoxDeadBandC1EP7QWidget");
const HostSymbol intValidator("_ZN18CustomIntValidatorC1EiiP7QObject");

} // namespace

HostSymbol::HostSymbol(const char *name) : m_name(name)
{
    hostLibraries().symbols.push_back(this);
}

QString HostSymbol::text() const
{
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(m_name, nullptr, nullptr, nullptr),
                                                           &std::free);
    return QString::fromLatin1(text ? text.get() : m_name);
}

QFunctionPointer HostSymbol::address() const
{
    for (QLibrary &library : hostLibraries().libraries) {
        if (const QFunctionPointer found = library.resolve(m_name)) {
            return found;
        }
    }
    return nullptr;
}

QString loadHostLibraries(const QString &folder)
{
    const std::array<QString, 2> names{QStringLiteral("libbasemodule.so"), QStringLiteral("libhelpsharemodule.so")};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const QFileInfo file(QDir(folder), names.at(i));
        if (!file.exists()) {
            return QStringLiteral("no file ") % file.filePath();
        }
        QLibrary &library = hostLibraries().libraries.at(i);
        library.setFileName(file.absoluteFilePath());
        library.setLoadHints(QLibrary::ExportExternalSymbolsHint | QLibrary::PreventUnloadHint);
        if (!library.load()) {
            return library.errorString();
        }
    }
    return {};
}

QStringList missingSymbols()
{
    QStringList missing;
    for (const HostSymbol *symbol : hostLibraries().symbols) {
        if (symbol->address() == nullptr) {
            missing.append(symbol->text());
        }
    }
    return missing;
}
