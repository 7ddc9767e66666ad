// The workbench's window over the built plug-in, driven by keys, actions and dialogs.
#pragma once

#include "catalog.h"
#include "fastfolder.h"
#include "mainwindow.h"
#include "pagefixture.h"
#include "rackview.h"
#include "simulatedhost.h"

#include <initializer_list>
#include <memory>
#include <utility>

/// The base of a test class. Its files and settings are in a temporary folder.
class WindowFixture : public QObject {
protected:
    void loadPlugin()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path())); // for recovery copies, also of other programs
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        QVERIFY(QDir::setCurrent(m_folder.path()));
        QCOMPARE(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH).reason(), QString());
    }

    /// Shows a new window with a new station.
    void show(std::initializer_list<std::pair<quint32, Place>> modules = {})
    {
        simulatedhost::reset();
        auto station = std::make_unique<Station>(m_plugin, "first");
        for (const auto &[type, place] : modules) {
            QVERIFY(station->add(type, place));
        }
        m_window = std::make_unique<MainWindow>(m_plugin, readCatalog(), std::move(station));
        m_window->setLanguage(QLocale::English);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_racks = child<RackView>("rackView");
    }

    void close()
    {
        // The search field's clear button fades in. Wait for the animation, because it deletes itself only at its end.
        const auto *search = child<QLineEdit>("catalogSearch");
        const auto *button = search->findChild<QToolButton *>();
        QTRY_COMPARE(button->property("opacity").toDouble(), search->text().isEmpty() ? 0.0 : 1.0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_window.reset();
    }

    template <typename Widget>
    Widget *child(const char *name) const
    {
        return ::child<Widget>(*m_window, name);
    }
    void trigger(const char *action) const { child<QAction>(action)->trigger(); }
    QString message() const { return m_window->statusBar()->currentMessage(); }

    /// Activates the window first, because keys reach shortcuts only in the active window.
    static void press(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QApplication::setActiveWindow(widget->window());
        widget->setFocus();
        QTest::keyClick(widget, key, modifiers);
    }

    static void doubleClick(QWidget *viewport, QPoint point)
    {
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, point);
        QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, point);
    }

    /// Runs @p answer on the next modal dialog. The dialog must be a Dialog, and the answer must close it.
    template <typename Dialog = QDialog, typename Answer>
    void answerNext(Answer answer)
    {
        QTimer::singleShot(0, this, [this, answer] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return answerNext<Dialog>(answer); // not open yet
            }
            answer(dialog);
        });
    }

    /// Chooses a file in the next dialog.
    void chooseNext(const QString &file)
    {
        answerNext([file](QDialog *dialog) {
            ::child<QLineEdit>(*dialog, "fileNameEdit")->setText(file);
            dialog->accept();
        });
    }

    /// Clicks a button of the next message box, which must have this object name.
    void clickNext(const char *box, const QString &button)
    {
        answerNext<QMessageBox>([=](QMessageBox *dialog) {
            const auto buttons = dialog->buttons();
            const auto found = std::find_if(buttons.begin(), buttons.end(),
                                            [&](const QAbstractButton *each) { return each->text() == button; });
            if (dialog->objectName() != QLatin1String(box) || found == buttons.end()) {
                qFatal("%s: %s", qPrintable(dialog->objectName()), qPrintable(dialog->text()));
            }
            (*found)->click();
        });
    }

    PluginLibrary m_plugin;
    QTemporaryDir m_folder{fastFolder()};
    std::unique_ptr<MainWindow> m_window;
    RackView *m_racks = nullptr;
};
