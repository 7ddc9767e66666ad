// Where the pages place what they consist of.
#include "pagefixture.h"
#include "rows.h"
#include "saddrmapwgt.h"
#include "saifilterwgt.h"
#include "sairangewgt.h"
#include "saqouttblwgt.h"
#include "saqouttypewgt.h"
#include "sdifilterwgt.h"
#include "sdqouttblwgt.h"
#include "sgeneralwgt.h"
#include "simpleextendpar.h"
#include "sweightparcfgwgt.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QScrollArea>

namespace {

using MakePage = ParamPage *(*)(SimpleExtendPar *par, QWidget *parent);

template <class Page>
ParamPage *make(SimpleExtendPar *par, QWidget *parent)
{
    return new Page(par, nullptr, parent);
}

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

/// The object name, else the text; "area" for what only scrolls or frames a layout.
QString nameOf(const QWidget *widget)
{
    if (!widget->objectName().isEmpty()) {
        return widget->objectName();
    }
    const char *const property = qobject_cast<const QGroupBox *>(widget) != nullptr ? "title" : "text";
    const QString text = widget->property(property).toString();
    return text.isEmpty() ? QStringLiteral("area") : QString('\'' + text + '\'');
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
    const Qt::Alignment alignment = item->alignment();
    return alignment == Qt::AlignCenter  ? " centred"
           : alignment == Qt::AlignRight ? " right"
           : alignment == Qt::AlignTop   ? " top"
                                         : "";
}

QString spacerOf(QSpacerItem *spacer)
{
    const auto letter = [](QSizePolicy::Policy policy) {
        return policy == QSizePolicy::Expanding ? "e" : policy == QSizePolicy::Minimum ? "m" : "-";
    };
    return QStringLiteral("spacer %1%2x%3%4")
        .arg(spacer->sizeHint().width())
        .arg(letter(spacer->sizePolicy().horizontalPolicy()))
        .arg(spacer->sizeHint().height())
        .arg(letter(spacer->sizePolicy().verticalPolicy()));
}

QString describe(QLayoutItem *item);

QStringList describeItems(QLayout *layout)
{
    QStringList items;
    const auto *grid = qobject_cast<QGridLayout *>(layout);
    for (int i = 0; i < layout->count(); ++i) {
        QString place;
        if (grid != nullptr) {
            int row = 0;
            int column = 0;
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(i, &row, &column, &rows, &columns);
            place = QStringLiteral(" %1,%2").arg(row).arg(column);
            place += rows * columns == 1 ? QString() : QStringLiteral(" %1x%2").arg(rows).arg(columns);
        }
        items << describe(layout->itemAt(i)) + place;
    }
    return items;
}

QString describe(QLayoutItem *item)
{
    if (item->spacerItem() != nullptr) {
        return spacerOf(item->spacerItem());
    }
    if (item->layout() != nullptr) {
        return '[' + describeItems(item->layout()).join("; ") + ']';
    }
    QWidget *widget = item->widget();
    const auto *area = qobject_cast<QScrollArea *>(widget);
    QWidget *const content = area != nullptr ? area->widget() : widget;
    if (content->layout() == nullptr) {
        return nameOf(widget) + sizeOf(widget) + alignmentOf(item);
    }
    const QString contents = describeItems(content->layout()).join("; ");
    return nameOf(widget) + '[' + marginsOf(content->layout()) + contents + ']' + sizeOf(widget) + alignmentOf(item);
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
            "descriptionLabel; defaultsButton right; 'Information'['&Name:' 0,0; nameEdit 0,1; "
            "'&Comment:' top 1,0; commentEdit expanding 1,1]");
        row("address", make<SAddrMapWgt>,
            "'Input'['Address' 0,0; 'Start:' 0,1; inputStart 0,2; 'End:' 0,3; inputEnd 0,4; "
            "'Length' 1,1; inputLength 1,2; 'Unit' 1,3; inputUnit 1,4; 'Memory:' 2,1; inputMemory 2,2]; "
            "'Output'['Address' 0,0; 'Start:' 0,1; outputStart 0,2; 'End:' 0,3; outputEnd 0,4; "
            "'Length' 1,1; outputLength 1,2; 'Unit' 1,3; outputUnit 1,4; 'Memory:' 2,1; outputMemory 2,2]; "
            "spacer 0mx0e");
        row("digital input filter", make<SDIFilterWgt>,
            "area['Input Filter Delays'[margins 50,9,50,9; descriptionLabel; area[filterLabel_0 0,0; "
            "filter_0 0,1; filterLabel_1 1,0; filter_1 1,1]; defaultsButton right]]");
        row("digital output table", make<SDQOutTblWgt>,
            "area['States on transition from RUN to STOP'[descriptionLabel; freezeCheck; "
            "'Selected output will be ON when the PLC transitions from RUN to STOP mode.'; "
            "area['0' w14 h14 centred 0,1; '1' w14 h14 centred 0,2; '2' w14 h14 centred 0,3; "
            "'3' w14 h14 centred 0,4; '4' w14 h14 centred 0,5; '5' w14 h14 centred 0,6; "
            "'6' w14 h14 centred 0,7; '7' w14 h14 centred 0,8; 'Q0.x' w14 h14 centred 1,0; "
            "output_0 centred 1,1; output_1 centred 1,2; output_2 centred 1,3; output_3 centred 1,4; "
            "output_4 centred 1,5; output_5 centred 1,6; output_6 centred 1,7; output_7 centred 1,8; "
            "'Q1.x' w14 h14 centred 2,0; output_8 centred 2,1]; [selectAllButton; clearAllButton; "
            "spacer 0ex0m; defaultsButton]]]");
        row("analog input filter", make<SAIFilterWgt>,
            "area[descriptionLabel; defaultsButton right; area[area['Whether to Filter' 0,0; "
            "'Number of Samples' 0,1; 'Deadband(16 - 4080, 0 = forbid)' 0,2; filterOn_0 1,0; samples_0 1,1; "
            "deadband_0 1,2; filterOn_1 2,0; samples_1 2,1; deadband_1 2,2; spacer 10mx10e 4,2] 0,0 8x4; "
            "selectAllButton 8,1; clearAllButton 8,2] expanding]");
        row("analog range", make<SAIRangeWgt>, "descriptionLabel; defaultsButton right; rangeTable expanding");
        row("analog output table", make<SAQOutTblWgt>,
            "area[descriptionLabel; defaultsButton right; "
            "'Values on transition from RUN to STOP'[area[freeze_0 0,0; spacer 10ex10m 0,1; 'AQW0:' 0,2; "
            "stopValue_0 w50 0,3; freeze_1 1,0; spacer 10ex10m 1,1; 'AQW2:' 1,2; "
            "stopValue_1 w50 1,3]] expanding]");
        row("analog output type", make<SAQOutTypeWgt>,
            "area[descriptionLabel; defaultsButton right; "
            "'Values on transition from RUN to STOP'[area[spacer 0mx0m 0,0; 'Channel Enable' h24 0,1 1x2; "
            "'Range' h24 0,3 1x2; enable_0 1,1 1x2; range_0 1,3 1x2; 'Channel 0:' 1,0; "
            "enable_1 2,1 1x2; range_1 2,3 1x2; 'Channel 1:' 2,0; spacer 10mx10e 3,0]] expanding]");
        row("weighing", make<SWeightParCfgWgt>, "defaultsButton right; weighTable expanding");
    }
    void places()
    {
        QFETCH(MakePage, make);
        SimpleExtendPar par = smallModule();
        QWidget parent;
        QFont font;
        font.setPixelSize(4); // sizes are the prescribed ones, not those that a large font needs
        parent.setFont(font);
        ParamPage *const page = make(&par, &parent);
        QTEST(describeItems(page->layout()).join("; "), "places");
    }
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"
