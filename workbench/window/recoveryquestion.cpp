#include "recoveryquestion.h"

#include "autorecovery.h"
#include "filequestions.h"
#include "stationdocument.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RecoveryQuestion)
};

enum class Answer { Recover, Discard, Later };

Answer ask(const UnsavedStation &station, QWidget &window)
{
    const QString name =
        station.fileName.isEmpty() ? Texts::tr("New station") : QDir::toNativeSeparators(station.fileName);
    QMessageBox box(QMessageBox::Warning, Texts::tr("Unsaved Changes"),
                    Texts::tr("The workbench ended before the changes to \"%1\" were saved.").arg(name),
                    QMessageBox::NoButton, &window);
    box.setObjectName(QStringLiteral("recoveryBox"));
    box.setInformativeText(
        Texts::tr("The copy of %1 has %n module(s). Recover opens it as unsaved changes; the project file stays as it "
                  "is until you save.",
                  nullptr, static_cast<int>(station.project.modules.size()))
            .arg(station.time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"))));
    const QAbstractButton *const recover = box.addButton(Texts::tr("&Recover"), QMessageBox::AcceptRole);
    const QAbstractButton *const discard = box.addButton(Texts::tr("&Discard"), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(Texts::tr("Ask &Later"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == recover   ? Answer::Recover
           : box.clickedButton() == discard ? Answer::Discard
                                            : Answer::Later;
}

} // namespace

bool offerUnsavedStations(StationDocument &document, AutoRecovery &recovery, const QString &folder, QWidget &window)
{
    for (const std::unique_ptr<RecoveryCopy> &copy : RecoveryCopy::abandoned(folder)) {
        const Result<UnsavedStation> station = copy->read();
        const Answer answer = station ? ask(*station, window) : Answer::Later;
        if (answer == Answer::Discard) {
            copy->drop();
        }
        if (answer != Answer::Recover) {
            continue;
        }
        const Result<> restored = document.restore(*station);
        if (restored && recovery.write()) {
            copy->drop();
        }
        showFailure(&window, Texts::tr("The changes cannot be recovered. Their copy stays."), restored);
        if (restored) {
            return true;
        }
    }
    return false;
}
