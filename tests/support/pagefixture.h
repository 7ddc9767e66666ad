// Finds and edits the widgets of a page.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QtTest>

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
