// Opens the properties dialog of a module and edits it as an input describes.
#pragma once

#include "boxrecorder.h"
#include "inputcursor.h"
#include "simpleextendexportfunc.h"
#include "target.h"

#include <QtWidgets>

namespace fuzz {

inline void changeEditor(QWidget *editor, fuzz::InputCursor &input)
{
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        box->setCurrentIndex(input.number<qint8>() % (box->count() + 1));
    } else if (auto *spinBox = qobject_cast<QSpinBox *>(editor)) {
        spinBox->setValue(input.number<qint16>());
    } else if (auto *decimals = qobject_cast<QDoubleSpinBox *>(editor)) {
        decimals->setValue(input.number<qint16>() / 128.0);
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(QString::fromUtf8(input.bytes()));
    } else if (auto *text = qobject_cast<QTextEdit *>(editor)) {
        text->setPlainText(QString::fromUtf8(input.bytes()));
    } else if (auto *button = qobject_cast<QAbstractButton *>(editor)) {
        button->click();
    }
}

/// Returns the enabled editors and buttons of a dialog, except those that close it.
inline QVector<QWidget *> editorsOf(const QDialog &dialog)
{
    QVector<QWidget *> editors;
    for (QWidget *widget : dialog.findChildren<QWidget *>()) {
        const QString name = widget->objectName();
        const bool isInside = name.isEmpty() || name.startsWith(QLatin1String("qt_"));
        const bool closes = name == QLatin1String("okButton") || name == QLatin1String("cancelButton");
        if (widget->isEnabled() && !isInside && !closes) {
            editors += widget;
        }
    }
    return editors;
}

/// Every second choice is the start of a range, because the memory map depends on it.
inline QWidget *chosenEditor(const QDialog &dialog, InputCursor &input)
{
    const int choice = input.below(4);
    if (choice < 2) {
        return dialog.findChild<QWidget *>(choice == 0 ? QStringLiteral("inputStart") : QStringLiteral("outputStart"));
    }
    const QVector<QWidget *> editors = editorsOf(dialog);
    return editors.at(input.number<quint16>() % editors.size());
}

enum class DialogEnd { Accepted, Refused, Cancelled };

/// Runs config(), changes some editors and closes the dialog.
inline DialogEnd editInDialog(SimpleExtendPar *module, const QString &owner, InputCursor &input)
{
    constexpr int maximumEdits = 4;
    const bool isLocked = input.below(4) == 1;
    const bool pressesOk = input.below(4) != 1;
    DialogEnd end = DialogEnd::Cancelled;
    QWidget parent;
    const BoxRecorder boxes;
    QTimer::singleShot(0, &parent, [&] {
        auto *const dialog = parent.findChild<QDialog *>();
        dialog->setUpdatesEnabled(false); // painting would take most of the time
        for (int i = input.below(maximumEdits + 1); i > 0; --i) {
            changeEditor(chosenEditor(*dialog, input), input);
        }
        if (pressesOk && !isLocked) {
            end = DialogEnd::Refused;
        }
        if (pressesOk) {
            dialog->findChild<QAbstractButton *>(QStringLiteral("okButton"))->click();
        }
        if (dialog->result() == QDialog::Accepted) {
            end = DialogEnd::Accepted;
        } else {
            dialog->reject();
        }
    });
    require(config(module, owner, &parent, isLocked) == 0, "config returns another number");
    require(parent.findChild<QDialog *>() == nullptr, "the dialog stays open");
    return end;
}

} // namespace fuzz
