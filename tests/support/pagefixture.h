// Drives a page through its widgets, as a user does.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QtTest>

template <class Widget = QWidget>
Widget *child(const QWidget &page, const QString &name)
{
    auto *widget = page.findChild<Widget *>(name);
    if (widget == nullptr) {
        qFatal("no widget %s", qPrintable(name));
    }
    return widget;
}

/// Edits by the keyboard: "samples_1=7" chooses the eighth entry, types into a field or sets a check box;
/// "selectAllButton" presses.
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
