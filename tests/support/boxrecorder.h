// Accepts the message boxes that the code under test opens, and records their contents.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QMetaEnum>
#include <QStringList>

#include <functional>

/// During its lifetime every message box is accepted as soon as it is shown.
class BoxRecorder : public QObject {
public:
    BoxRecorder() { qApp->installEventFilter(this); }

    QStringList texts; ///< "icon, title: text" of each box, followed by " (choice)" if it has more buttons than OK
    std::function<void(const QMessageBox &box)> onBox = [](const QMessageBox &) {
    }; ///< called before the box is accepted

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box != nullptr && event->type() == QEvent::Show) {
            const QString icon = QMetaEnum::fromType<QMessageBox::Icon>().valueToKey(box->icon());
            const QString choice = box->standardButtons() == QMessageBox::Ok ? "" : " (choice)";
            texts << QStringLiteral("%1, %2: %3%4").arg(icon.toLower(), box->windowTitle(), box->text(), choice);
            onBox(*box);
            QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }
};
