// The time to construct, show and destroy a page, compared with a plain page: the same editors in the same layout and
// nothing else. Both contain the time of the editors alone. The time of the actions that change many channels.
#include "baseservices.h"
#include "comparison.h"
#include "pageplan.h"
#include "saifilterwgt.h"
#include "sairangewgt.h"
#include "saqouttblwgt.h"
#include "saqouttypewgt.h"
#include "sdifilterwgt.h"
#include "sdqouttblwgt.h"
#include "simpleextendcfgdlg.h"
#include "simpleextendpar.h"
#include "sweightparcfgwgt.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QMetaProperty>
#include <QPushButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <functional>
#include <limits>
#include <memory>

namespace {

constexpr std::array<quint8, 3> channelCounts = {8, 64, 255};
constexpr double growthGoal = 4.6; ///< from 64 to 255 channels
constexpr quint8 dialogChannels = 16;
constexpr QSize pageSize(490, 340); ///< about the size of a page in the dialog

SimpleExtendPar recordOf(quint32 typeCode, quint8 channels, SignalFamily family = VoltageCurrent)
{
    SimpleExtendPar par;
    par.objId = typeCode;
    par.inMap.count = par.outMap.count = channels;
    par.aiCount = par.aqCount = par.diCount = par.dqCount = par.weighCount = channels;
    for (quint8 channel = 0; channel < channels; ++channel) {
        par.aiKind.insert(channel, family);
    }
    return par;
}

using PageMaker = std::unique_ptr<QWidget> (*)(SimpleExtendPar &par);

template <class Page>
std::unique_ptr<QWidget> make(SimpleExtendPar &par)
{
    return std::make_unique<Page>(&par, &par, nullptr);
}

enum Variant { Page, Plain, PlainToContents, Editors };
constexpr std::array variantNames = {"page", "plain page", "plain page, columns resized to contents", "editors"};

struct Kind {
    const char *name;
    PageMaker make;
    quint32 typeCode;
    SignalFamily family;
    const char *editor;   ///< of channel 0, whose value the actions use
    Variant peer = Plain; ///< the variant that the goal compares with, both less the editors
    double goal = 0;      ///< of the variant with the most channels; 0 = none
};

constexpr std::array kinds = {
    Kind{"analog filter", make<SAIFilterWgt>, 13395, VoltageCurrent, "deadband_0"},
    Kind{"analog range U/I", make<SAIRangeWgt>, 13395, VoltageCurrent, "inputRange_0", Plain, 0.70},
    Kind{"analog range TC", make<SAIRangeWgt>, 13396, Thermocouple, "inputRange_0", Plain, 0.70},
    Kind{"analog range RTD", make<SAIRangeWgt>, 13397, ResistanceThermometer, "inputRange_0", Plain, 0.70},
    Kind{"analog output table", make<SAQOutTblWgt>, 13395, VoltageCurrent, "freeze_0"},
    Kind{"analog output type", make<SAQOutTypeWgt>, 13395, VoltageCurrent, "range_0"},
    Kind{"digital filter", make<SDIFilterWgt>, 13650, VoltageCurrent, "filter_0"},
    Kind{"digital output table", make<SDQOutTblWgt>, 13650, VoltageCurrent, "output_0"},
    Kind{"weighing", make<SWeightParCfgWgt>, 14418, VoltageCurrent, "sensitivity_0", PlainToContents, 0.65},
};

QWidget *newPlainTable(const Plan &plan, QHeaderView::ResizeMode resizeMode)
{
    auto *table = new QTableWidget(plan.rows, plan.titles.size());
    table->setHorizontalHeaderLabels(plan.titles);
    table->horizontalHeader()->setSectionResizeMode(resizeMode);
    for (const Cell &cell : plan.cells) {
        if (cell.newEditor) {
            table->setCellWidget(cell.row, cell.column, cell.newEditor(table));
        } else {
            table->setItem(cell.row, cell.column, new QTableWidgetItem(QString::number(cell.row)));
        }
    }
    return table;
}

QWidget *newPlainGrid(const Plan &plan)
{
    auto *area = new QScrollArea;
    auto *rows = new QWidget;
    auto *grid = new QGridLayout(rows);
    for (const Cell &cell : plan.cells) {
        grid->addWidget(cell.newEditor(rows), cell.row, cell.column, cell.rowSpan, cell.columnSpan);
    }
    area->setWidgetResizable(true);
    area->setWidget(rows);
    return area;
}

std::unique_ptr<QWidget> newPlainPage(const Plan &plan, QHeaderView::ResizeMode resizeMode)
{
    auto page = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(page.get());
    layout->addWidget(new QPushButton(QStringLiteral("Defaults")), 0, Qt::AlignRight);
    layout->addWidget(plan.titles.isEmpty() ? newPlainGrid(plan) : newPlainTable(plan, resizeMode));
    return page;
}

/// The editors without a layout, on a page that shows the first ones.
std::unique_ptr<QWidget> newEditors(const Plan &plan)
{
    auto page = std::make_unique<QWidget>();
    for (const Cell &cell : plan.cells) {
        if (cell.newEditor) {
            constexpr int height = 30;
            constexpr int width = 100;
            cell.newEditor(page.get())->setGeometry(cell.column * width, cell.row * height, width, height);
        }
    }
    return page;
}

void constructShowDestroy(benchmark::State &state, const std::function<std::unique_ptr<QWidget>()> &construct,
                          const QSize &size = {})
{
    for ([[maybe_unused]] const auto _ : state) {
        const std::unique_ptr<QWidget> widget = construct();
        if (size.isValid()) {
            widget->resize(size);
        }
        widget->show();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(); // the activation of the window posts an event to each line edit
    }
}

QString nameOf(const char *kind, int channels, Variant variant)
{
    return QStringLiteral("%1/%2/%3").arg(kind).arg(channels).arg(variantNames.at(variant));
}

constexpr std::array actionNames = {"applyToAllAction", "fillDownAction", "resetValueAction"};
constexpr double actionGoal = 0.05; ///< seconds

QString nameOfAction(const Kind &kind, const char *action)
{
    return QStringLiteral("%1/%2").arg(QLatin1String(kind.name), QLatin1String(action));
}

bool isTable(const Kind &kind)
{
    return kind.make == make<SAIRangeWgt> || kind.make == make<SWeightParCfgWgt>;
}

template <class Function>
void add(const QString &name, int iterations, const Function &function)
{
    benchmark::RegisterBenchmark(qPrintable(name), function)->Iterations(iterations)->Unit(benchmark::kMillisecond);
}

void addPages(const Kind &kind, quint8 channels)
{
    const int iterations = std::numeric_limits<quint8>::max() / channels; // at least a few milliseconds
    auto par = std::make_shared<SimpleExtendPar>(recordOf(kind.typeCode, channels, kind.family));
    add(nameOf(kind.name, channels, Page), iterations, [par, kind](benchmark::State &state) {
        constructShowDestroy(
            state, [&] { return kind.make(*par); }, pageSize);
    });
    const Plan plan = planOf(*kind.make(*par));
    const auto addPlain = [&](Variant variant, QHeaderView::ResizeMode resizeMode) {
        add(nameOf(kind.name, channels, variant), iterations, [plan, resizeMode](benchmark::State &state) {
            constructShowDestroy(
                state, [&] { return newPlainPage(plan, resizeMode); }, pageSize);
        });
    };
    addPlain(Plain, QHeaderView::Interactive);
    if (isTable(kind)) {
        addPlain(PlainToContents, QHeaderView::ResizeToContents);
        add(nameOf(kind.name, channels, Editors), iterations, [plan](benchmark::State &state) {
            constructShowDestroy(
                state, [&] { return newEditors(plan); }, pageSize);
        });
    }
}

/// Triggers an action of an open page for an editor of channel 0, which is given another value before each run. The
/// default record of the page is its own.
void runAction(benchmark::State &state, const Kind &kind, SimpleExtendPar &par, const QString &name)
{
    const std::unique_ptr<QWidget> page = kind.make(par);
    page->resize(pageSize);
    page->show();
    QCoreApplication::processEvents();
    auto *const editor = page->findChild<QWidget *>(QLatin1String(kind.editor));
    editor->setFocus();
    auto *const action = page->findChild<QAction *>(name);
    const QMetaProperty value = editor->metaObject()->userProperty();
    const bool isChoice = qobject_cast<const QComboBox *>(editor) != nullptr;
    const QVariant first = value.read(editor);
    const QVariant second =
        isChoice ? QVariant(static_cast<const QComboBox *>(editor)->itemText(1)) : QVariant(first.toInt() == 0 ? 1 : 0);
    bool isSecond = false;
    for ([[maybe_unused]] const auto _ : state) {
        isSecond = !isSecond;
        value.write(editor, isSecond ? second : first);
        action->trigger();
        QCoreApplication::processEvents();
    }
}

void addActions(const Kind &kind)
{
    const quint8 channels = channelCounts.back();
    auto par = std::make_shared<SimpleExtendPar>(recordOf(kind.typeCode, channels, kind.family));
    for (const char *action : actionNames) {
        add(nameOfAction(kind, action), 2,
            [par, kind, action](benchmark::State &state) { runAction(state, kind, *par, QLatin1String(action)); });
    }
}

struct Module {
    const char *name;
    quint32 typeCode;
    SignalFamily family;
    VarArea input;
    VarArea output;
};

constexpr std::array modules = {
    Module{"analog module", 13395, VoltageCurrent, VarArea::AnalogInput, VarArea::AnalogOutput},
    Module{"RTD module", 13397, ResistanceThermometer, VarArea::AnalogInput, VarArea::None},
    Module{"digital module", 13650, VoltageCurrent, VarArea::DigitalInput, VarArea::DigitalOutput},
    Module{"weighing module", 14418, VoltageCurrent, VarArea::Variable, VarArea::None},
};

void addDialog(const Module &module)
{
    auto par = std::make_shared<SimpleExtendPar>(recordOf(module.typeCode, dialogChannels, module.family));
    par->inMap.area = static_cast<quint8>(module.input);
    par->outMap.area = static_cast<quint8>(module.output);
    add(nameOf(module.name, dialogChannels, Page), 1, [par](benchmark::State &state) {
        constructShowDestroy(
            state, [&] { return std::make_unique<SimpleExtendcfgdlg>(par.get(), QString(), nullptr, false); });
    });
}

void addRows(Comparison &comparison)
{
    for (const Kind &kind : kinds) {
        for (const quint8 channels : channelCounts) {
            const QString work = QStringLiteral("%1, %2 channels").arg(kind.name).arg(channels);
            const QString ours = nameOf(kind.name, channels, Page);
            const auto addRow = [&](Variant peer) {
                comparison.add(TimeRow{work, ours, {nameOf(kind.name, channels, peer)}});
            };
            addRow(Plain);
            if (isTable(kind)) {
                addRow(PlainToContents);
                const double goal = channels == channelCounts.back() ? kind.goal : 0;
                comparison.add(TimeRow{
                    work, ours, {nameOf(kind.name, channels, kind.peer)}, goal, nameOf(kind.name, channels, Editors)});
            }
        }
        if (isTable(kind)) {
            comparison.add(TimeRow{QStringLiteral("%1, growth").arg(kind.name),
                                   nameOf(kind.name, channelCounts.at(2), Page),
                                   {nameOf(kind.name, channelCounts.at(1), Page)},
                                   growthGoal});
        }
        for (const char *action : actionNames) {
            const QString work = QStringLiteral("%1, %2 channels").arg(kind.name).arg(channelCounts.back());
            comparison.add(TimeRow{work, nameOfAction(kind, action), {}, actionGoal});
        }
    }
    for (const Module &module : modules) {
        comparison.add(TimeRow{QStringLiteral("whole dialog"), nameOf(module.name, dialogChannels, Page), {}});
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    for (const Kind &kind : kinds) {
        for (const quint8 channels : channelCounts) {
            addPages(kind, channels);
        }
        addActions(kind);
    }
    for (const Module &module : modules) {
        addDialog(module);
    }
    Comparison comparison;
    addRows(comparison);
    return comparison.run(argc, argv);
}
