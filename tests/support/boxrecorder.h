// Answers the message boxes that the code under test opens, and keeps what they said.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QStringList>

#include <functional>

/// While it lives, every message box is accepted as soon as it waits for an answer.
class BoxRecorder : public QObject {
public:
    BoxRecorder() { qApp->installEventFilter(this); }

    QStringList told;                                                               ///< icon, title and text
    std::function<void(const QMessageBox &box)> onBox = [](const QMessageBox &) {}; ///< before the answer

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box != nullptr && event->type() == QEvent::Show) {
            const QString icon = box->icon() == QMessageBox::Warning ? "warning" : "information";
            told << QStringLiteral("%1, %2: %3").arg(icon, box->windowTitle(), box->text());
            onBox(*box);
            QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }
};
