// Random edits of the properties dialog.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTextEdit>

/// Gives every editor of the dialog a random value. The values break no rule, so that OK accepts them.
inline void changeEverything(const QDialog &dialog, QRandomGenerator &random)
{
    // The starts are in range for every area. The filter depth exceeds the sum of the other two.
    const QHash<QString, QPair<int, int>> narrower{{"inputStart", {0, 400}},
                                                   {"outputStart", {500, 900}},
                                                   {"filterDepth", {1000, 2000}},
                                                   {"subMax", {0, 499}},
                                                   {"subMin", {0, 499}}};
    for (QWidget *editor : dialog.findChildren<QWidget *>(QRegularExpression("^(?!qt_)"))) {
        if (!editor->isEnabledTo(&dialog)) {
            continue;
        }
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            combo->setCurrentIndex(random.bounded(combo->count()));
        } else if (auto *box = qobject_cast<QCheckBox *>(editor)) {
            box->setChecked(random.bounded(2) == 1);
        } else if (auto *spinBox = qobject_cast<QSpinBox *>(editor)) {
            const auto [lowest, highest] =
                narrower.value(spinBox->objectName().section('_', 0, 0), {spinBox->minimum(), spinBox->maximum()});
            const int steps = (highest - lowest) / spinBox->singleStep();
            spinBox->setValue(lowest + random.bounded(steps + 1) * spinBox->singleStep());
        } else if (auto *numberBox = qobject_cast<QDoubleSpinBox *>(editor)) {
            numberBox->setValue(random.bounded(numberBox->maximum()));
        } else if (auto *text = qobject_cast<QLineEdit *>(editor); text != nullptr && !text->isReadOnly()) {
            text->setText(QString::number(random.bounded(-32000, 32001)));
        } else if (auto *comment = qobject_cast<QTextEdit *>(editor)) {
            comment->setPlainText(QString::number(random.generate()));
        }
    }
}
