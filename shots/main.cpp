// Renders the pages of the properties dialog to PNG files; see usage below.
#include "samplemodules.h"
#include "simpleextendcfgdlg.h"
#include "simulatedhelp.h"

#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QStackedWidget>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTextStream>
#include <QTranslator>
#include <QTreeWidget>

namespace {

constexpr auto usage = "Usage: shots FOLDER en|zh light|dark all|kinds [POINTS]\n"
                       "\n"
                       "Renders every page of all module types and of wide ones, or of one module of each kind,\n"
                       "to FOLDER/LANGUAGE-PALETTE-SCALE-MODULE-NUMBER-PAGE.png. QT_SCALE_FACTOR gives the scale,\n"
                       "POINTS the size of the font, else 9; it is then a part of the file name after SCALE.\n";

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53), QColor(42, 42, 42));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return palette;
}

/// Sets values that differ between channels, so that the pictures show more states of the editors.
void varyChannels(SimpleExtendPar &par)
{
    for (quint8 channel = 0; channel < par.aiCount; ++channel) {
        par.aiRange[channel][AiInputRange] = channel % 4;
        par.aiRange[channel][AiOpenWire] = 1;
    }
    for (quint8 channel = 0; channel < par.aqCount; ++channel) {
        par.aqOutTbl[channel] = {static_cast<quint8>(channel % 2), static_cast<qint16>(-100 * channel)};
    }
}

/// Returns false if a file cannot be written.
bool renderPages(const samplemodules::Sample &sample, const QString &pathStem)
{
    SimpleExtendPar *const par = sample.par.get();
    SimpleExtendcfgdlg dialog(par, par->memoryOwner, nullptr, false);
    dialog.resize(sample.isWide ? QSize(1160, 420) : dialog.size());
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.show();
    const auto *stack = dialog.findChild<QStackedWidget *>(QStringLiteral("pageStack"));
    auto *tree = dialog.findChild<QTreeWidget *>(QStringLiteral("tree"));
    const QTreeWidgetItem *root = tree->topLevelItem(0);
    for (int i = 0; i < root->childCount(); ++i) {
        tree->setCurrentItem(root->child(i));
        QCoreApplication::processEvents();
        const auto *tab = qobject_cast<QTabWidget *>(stack->currentWidget());
        const QString path =
            QStringLiteral("%1-%2-%3.png").arg(pathStem).arg(i).arg(tab->currentWidget()->objectName());
        if (!dialog.grab().save(path)) {
            QTextStream(stderr) << "shots: cannot write " << path << '\n';
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QTranslator translator;
    if (arguments.size() != 5 && arguments.size() != 6) {
        QTextStream(stderr) << usage;
        return 2;
    }
    if (arguments.at(2) == QLatin1String("zh")) {
        if (!translator.load(QStringLiteral(SIMPLEEXTEND_TRANSLATION_PATH))) {
            QTextStream(stderr) << "shots: cannot read " << SIMPLEEXTEND_TRANSLATION_PATH << '\n';
            return 1;
        }
        QCoreApplication::installTranslator(&translator);
        simulatedhost::setLanguage(simulatedhost::Language::Local);
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QString points = arguments.value(5);
    QApplication::setFont(
        QFont(QStringLiteral("DejaVu Sans"), points.isEmpty() ? 9 : points.toInt())); // as on most desktops
    if (arguments.at(3) == QLatin1String("dark")) {
        QApplication::setPalette(darkPalette());
    }

    const bool all = arguments.at(4) == QLatin1String("all");
    std::vector<samplemodules::Sample> samples = samplemodules::factoryModules(!all);
    for (const quint8 channels : {quint8(16), quint8(255)}) {
        for (auto &sample : all ? samplemodules::wideModules(channels) : std::vector<samplemodules::Sample>()) {
            varyChannels(*sample.par);
            samples.push_back(std::move(sample));
        }
    }
    const QString stem =
        QStringLiteral("%1/%2-%3-%4-")
            .arg(arguments.at(1), arguments.at(2), arguments.at(3), QString::number(application.devicePixelRatio())) +
        (points.isEmpty() ? QString() : points + QStringLiteral("pt-"));
    return std::all_of(samples.begin(), samples.end(),
                       [&](const auto &sample) { return renderPages(sample, stem + sample.name); })
               ? 0
               : 1;
}
