// Finds and edits the widgets of a page.
#pragma once

#include <QtTest>
#include <QtWidgets>

template <typename Widget = QWidget>
Widget *child(const QWidget &page, const QString &name)
{
    auto *widget = page.findChild<Widget *>(name);
    if (widget == nullptr) {
        qFatal("no widget %s", qPrintable(name));
    }
    return widget;
}

/// Sends keys to the widgets that the words of @p edits name. "samples_1=7" selects the eighth choice of a combo box,
/// types into a field or sets a check box; "selectAllButton" presses the button.
inline void edit(const QWidget &page, const QString &edits)
{
    for (const QString &item : edits.split(' ', Qt::SkipEmptyParts)) {
        auto *widget = child(page, item.section('=', 0, 0));
        const QString value = item.section('=', 1);
        if (qobject_cast<QComboBox *>(widget) != nullptr) {
            QTest::keyClick(widget, Qt::Key_Home);
            for (int i = 0; i < value.toInt(); ++i) {
                QTest::keyClick(widget, Qt::Key_Down);
            }
        } else if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
            if (!button->isCheckable() || button->isChecked() != (value == "1")) {
                QTest::keyClick(button, Qt::Key_Space);
            }
        } else {
            QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(widget, Qt::Key_Backspace);
            QTest::keyClicks(widget, value);
        }
    }
}

/// Turns the wheel up over the widget. Returns whether the widget takes the event.
inline bool turnWheel(QWidget *widget)
{
    const QPoint place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

/// Returns the accessible name and description of a widget.
inline std::pair<QString, QString> heardOf(QWidget *widget)
{
    QAccessibleInterface *const read = QAccessible::queryAccessibleInterface(widget);
    return {read->text(QAccessible::Name), read->text(QAccessible::Description)};
}

/// Performs edits, key presses ("F1") and signals ("signal_saveData") as long as the dialog is visible.
inline void perform(QDialog &dialog, const QString &steps)
{
    bool ok = true;
    for (const QString &step : steps.split(' ', Qt::SkipEmptyParts)) {
        if (!dialog.isVisible()) {
            return;
        }
        if (step == "F1" && QTest::qWaitForWindowActive(&dialog)) { // shortcuts need an active window
            QTest::keyClick(child(dialog, "nameEdit"), Qt::Key_F1);
        } else if (step == "signal_saveData") {
            QMetaObject::invokeMethod(&dialog, "signal_saveData", Q_ARG(bool &, ok));
        } else {
            edit(dialog, step);
        }
    }
}
