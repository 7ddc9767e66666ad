// Where the pages place what they consist of.
#include "channelkinds.h"
#include "rows.h"
#include "saddrmapwgt.h"
#include "sgeneralwgt.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QScrollArea>

using namespace channelkinds;

namespace {

using MakePage = PagePtr (*)(Par &par, Par *defaults, QWidget *parent);

SimpleExtendPar smallModule()
{
    SimpleExtendPar par;
    par.inMap = {6, 0, 2, 1, 2};
    par.outMap = {7, 0, 2, 1, 2};
    par.aiCount = par.aqCount = par.weighCount = 2;
    par.diCount = 8;
    par.dqCount = 9;
    return par;
}

/// The object name and the text; "area" for what only scrolls or frames a layout.
QString nameOf(const QWidget *widget)
{
    const bool isBox = qobject_cast<const QGroupBox *>(widget) != nullptr;
    const bool hasText = isBox || widget->inherits("QLabel") || widget->inherits("QAbstractButton");
    const QString text = hasText ? widget->property(isBox ? "title" : "text").toString() : QString();
    QStringList parts{widget->objectName(), text.isEmpty() ? QString() : '\'' + text + '\''};
    parts.removeAll(QString());
    return parts.isEmpty() ? QStringLiteral("area") : parts.join(' ');
}

/// Fixed sizes, and whether the widget takes the place that it can get.
QString sizeOf(const QWidget *widget)
{
    const QSizePolicy policy = widget->sizePolicy();
    const bool expands = policy.expandingDirections() == (Qt::Horizontal | Qt::Vertical);
    QString size = expands && !widget->inherits("QScrollArea") ? QStringLiteral(" expanding") : QString();
    if (widget->minimumWidth() == widget->maximumWidth()) {
        size += QStringLiteral(" w%1").arg(widget->minimumWidth());
    }
    if (widget->minimumHeight() == widget->maximumHeight()) {
        size += QStringLiteral(" h%1").arg(widget->minimumHeight());
    }
    return size;
}

QString marginsOf(const QLayout *layout)
{
    const QMargins margins = layout->contentsMargins();
    if (layout->parentWidget() == nullptr || (margins.left() == margins.top() && margins.right() == margins.bottom())) {
        return {};
    }
    const auto text = QStringLiteral("margins %1,%2,%3,%4; ");
    return text.arg(margins.left()).arg(margins.top()).arg(margins.right()).arg(margins.bottom());
}

QString alignmentOf(const QLayoutItem *item)
{
    const QMap<int, QString> texts{{Qt::AlignCenter, " centred"}, {Qt::AlignRight, " right"}, {Qt::AlignTop, " top"}};
    return texts.value(static_cast<int>(item->alignment()));
}

QString spacerOf(const QSpacerItem *spacer)
{
    const auto length = [](int hint, QSizePolicy::Policy policy) -> QString {
        const QMap<int, QString> letters{{QSizePolicy::Expanding, "e"}, {QSizePolicy::Minimum, "m"}};
        return QString::number(hint) + letters.value(policy, "-");
    };
    const QSize hint = spacer->sizeHint();
    const QSizePolicy policy = spacer->sizePolicy();
    return "spacer " + length(hint.width(), policy.horizontalPolicy()) + 'x' +
           length(hint.height(), policy.verticalPolicy());
}

QString describe(QLayoutItem *item);

QString placeIn(const QGridLayout &grid, int index)
{
    int row = 0;
    int column = 0;
    QSize span;
    grid.getItemPosition(index, &row, &column, &span.rheight(), &span.rwidth());
    const QString place = QStringLiteral(" %1,%2").arg(row).arg(column);
    return span == QSize(1, 1) ? place : place + QStringLiteral(" %1x%2").arg(span.height()).arg(span.width());
}

/// The stretch factors of all columns, if one is not 0.
QStringList stretchOf(const QGridLayout &grid)
{
    QStringList factors;
    for (int column = 0; column < grid.columnCount(); ++column) {
        factors << QString::number(grid.columnStretch(column));
    }
    return factors.count("0") == factors.size() ? QStringList() : QStringList("stretch " + factors.join(','));
}

QString describeItems(QLayout *layout)
{
    QStringList items;
    const auto *grid = qobject_cast<QGridLayout *>(layout);
    for (int i = 0; i < layout->count(); ++i) {
        items << describe(layout->itemAt(i)) + (grid == nullptr ? QString() : placeIn(*grid, i));
    }
    return (items + (grid == nullptr ? QStringList() : stretchOf(*grid))).join("; ");
}

QString describe(QLayoutItem *item)
{
    if (item->spacerItem() != nullptr) {
        return spacerOf(item->spacerItem());
    }
    if (item->layout() != nullptr) {
        return '[' + describeItems(item->layout()) + ']';
    }
    const QWidget *widget = item->widget();
    const auto *area = qobject_cast<const QScrollArea *>(widget);
    QLayout *const inner = (area != nullptr ? area->widget() : widget)->layout();
    const QString contents = inner == nullptr ? QString() : '[' + marginsOf(inner) + describeItems(inner) + ']';
    return nameOf(widget) + contents + sizeOf(widget) + alignmentOf(item);
}

} // namespace

Q_DECLARE_METATYPE(MakePage)

class TestLayout : public QObject {
    Q_OBJECT

private slots:
    void places_data()
    {
        // Per item: its name, fixed width and height, alignment, row and column, and the cells that it spans if it
        // spans more than one. Spacers have width and height with their policies, e = expanding, m = minimum.
        const Rows<MakePage, QString> row("make", "places");
        row("general", make<SGeneralWgt>,
            "descriptionLabel 'You can adjust the name and comment for the object.'; defaultsButton 'Defaults' right; "
            "'Information'['&Name:' 0,0; nameEdit 0,1; "
            "'&Comment:' top 1,0; commentEdit expanding 1,1]");
        const QString range =
            "'%1'['Address' 0,0; 'Start:' 0,1; %2Start 0,2; 'End:' 0,3; %2End 0,4; 'Length' 1,1; "
            "%2Length 1,2; 'Unit' 1,3; %2Unit 1,4; 'Memory:' 2,1; %2Memory '%3' 2,2; stretch 0,0,1,0,1]; ";
        row("address", make<SAddrMapWgt>,
            range.arg("Input", "input", "AI") + range.arg("Output", "output", "AQ") + "spacer 0mx0e");
        row("digital input filter", make<SDIFilterWgt>,
            "area[defaultsButton 'Defaults' right; 'Input Filter Delays'[margins 50,9,50,9; descriptionLabel 'You can "
            "select the time that the input must remain constant before the signalis caught by the PLC.'; "
            "[filterLabel_0 'I0.0 - I0.3' 0,0; filter_0 0,1; filterLabel_1 'I0.4 - I0.7' 1,0; filter_1 1,1; stretch "
            "0,1]]]");
        QString digits;
        QString firstRow;
        for (int i = 0; i < 8; ++i) {
            digits += QString("'%1' w14 h14 centred 0,%2; ").arg(i).arg(i + 1);
            firstRow += QString("output_%1 centred 1,%2; ").arg(i).arg(i + 1);
        }
        row("digital output table", make<SDQOutTblWgt>,
            "area['States on transition from RUN to STOP'[descriptionLabel 'You can configure the ON and OFF states of "
            "each digital output on Transition from RUN to STOP of the PLC.'; [freezeCheck 'Freeze outputs in last "
            "state'; defaultsButton 'Defaults' right]; "
            "'Selected output will be ON when the PLC transitions from RUN to STOP mode.'; [" +
                digits + "'Q0.x' w14 h14 centred 1,0; " + firstRow +
                "'Q1.x' w14 h14 centred 2,0; output_8 centred 2,1; stretch 0,0,0,0,0,0,0,0,0,1]; "
                "[selectAllButton 'Select All'; clearAllButton 'Clear All'; spacer 0ex0m]]]");
        row("analog input filter", make<SAIFilterWgt>,
            "area[descriptionLabel 'The analog value the PLC used is the average of the number of samples taken,if the "
            "Analog Input Filter is selected. If the actual analog value exceeds the average value by more than the "
            "deadband, the average will be replaced with the actual value.'; defaultsButton 'Defaults' right; "
            "area[['Whether to Filter' 0,0; "
            "'Number of Samples' 0,1; 'Deadband(16 - 4080, 0 = forbid)' 0,2; filterOn_0 'AIW0' 1,0; samples_0 1,1; "
            "deadband_0 1,2; filterOn_1 'AIW2' 2,0; samples_1 2,1; deadband_1 2,2; spacer 10mx10e 4,2; "
            "stretch 2,2,3] 0,0 8x4; "
            "selectAllButton 'Select All' 8,1; clearAllButton 'Clear All' 8,2] expanding]");
        row("analog range", make<SAIRangeWgt>,
            "descriptionLabel 'You can adjust the range parameters.'; defaultsButton 'Defaults' right; rangeTable "
            "expanding");
        row("analog output table", make<SAQOutTblWgt>,
            "area[descriptionLabel 'You can configure the value of each analog output on transition from RUN to STOP "
            "of the PLC.'; defaultsButton 'Defaults' right; "
            "'Values on transition from RUN to STOP'[freeze_0 'Freeze outputs in last state' 0,0; spacer 10ex10m 0,1; "
            "'AQW0:' 0,2; "
            "stopValue_0 w50 0,3; freeze_1 'Freeze outputs in last state' 1,0; spacer 10ex10m 1,1; 'AQW2:' 1,2; "
            "stopValue_1 w50 1,3] expanding]");
        row("analog output type", make<SAQOutTypeWgt>,
            "area[descriptionLabel 'You can configure the value of each analog output type of the PLC.'; "
            "defaultsButton 'Defaults' right; "
            "'Values on transition from RUN to STOP'[spacer 0mx0m 0,0; 'Channel Enable' h24 0,1 1x2; "
            "'Range' h24 0,3 1x2; enable_0 1,1 1x2; range_0 1,3 1x2; 'Channel 0:' 1,0; "
            "enable_1 2,1 1x2; range_1 2,3 1x2; 'Channel 1:' 2,0; spacer 10mx10e 3,0] expanding]");
        row("weighing", make<SWeightParCfgWgt>, "defaultsButton 'Defaults' right; weighTable expanding");
    }
    void places()
    {
        SimpleExtendPar par = smallModule();
        QWidget parent;
        QFont font;
        font.setPixelSize(4); // sizes are the prescribed ones, not those that a large font needs
        parent.setFont(font);
        QTEST(describeItems(fetched<MakePage>("make")(par, nullptr, &parent)->layout()), "places");
    }
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"
