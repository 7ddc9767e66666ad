#include "helpbrowser.h"

#include <QEvent>

#include <algorithm>
#include <array>

// A resource in a static library is linked only if it is referenced. The macro must be outside namespaces.
static void initResources()
{
    Q_INIT_RESOURCE(workbench);
}

namespace {

struct Page {
    CatalogFamily family;
    const char *file;
    // The keywords that the plug-in's dialogs pass to the host.
    const char16_t *keyword;
    const char16_t *localKeyword;
};

constexpr std::array pages{
    Page{CatalogFamily::Analog, "analog.html", u"Analog Modules Properties", u"模拟量模块属性"},
    Page{CatalogFamily::Temperature, "temperature.html", u"TC/RTD Modules Properties", u"TC/RTD模块属性"},
    Page{CatalogFamily::Digital, "digital.html", u"Digital Modules Properties", u"数字量模块属性"},
    Page{CatalogFamily::Weighing, "weighing.html", u"Weight Modules Properties", u"称重模块属性"},
};

} // namespace

HelpBrowser::HelpBrowser(QWidget *parent) : QTextBrowser(parent)
{
    initResources();
    setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    showFamily(CatalogFamily::Other);
    retranslate();
}

void HelpBrowser::showKeyword(const QString &keyword)
{
    const auto *const found = std::find_if(pages.begin(), pages.end(), [&](const Page &page) {
        return keyword == QString::fromUtf16(page.keyword) || keyword == QString::fromUtf16(page.localKeyword);
    });
    showFamily(found == pages.end() ? CatalogFamily::Other : found->family);
}

void HelpBrowser::showFamily(CatalogFamily family)
{
    const auto *const found =
        std::find_if(pages.begin(), pages.end(), [=](const Page &page) { return page.family == family; });
    showPage(QLatin1String(found == pages.end() ? "overview.html" : found->file));
}

void HelpBrowser::showPage(const QString &page)
{
    //: Folder of the help pages in this language: en or zh.
    setSource(QUrl(QStringLiteral("qrc:/help/%1/%2").arg(tr("en"), page)));
}

QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    QVariant page = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::HtmlResource) {
        return page;
    }
    const QString section = QStringLiteral("channels.html");
    const QByteArray shared = QTextBrowser::loadResource(type, name.resolved(QUrl(section))).toByteArray();
    return QString::fromUtf8(page.toByteArray())
        .replace(QStringLiteral("<!-- %1 -->").arg(section), QString::fromUtf8(shared));
}

void HelpBrowser::retranslate()
{
    setAccessibleName(tr("Help page"));
    showPage(source().fileName()); // the page that is shown may differ from the latest keyword
}

void HelpBrowser::changeEvent(QEvent *event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
