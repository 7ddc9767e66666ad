#include "helpdialog.h"

#include "helpbrowser.h"

#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

void HelpDialog::showFor(QWidget &dialog, const QString &keyword)
{
    auto *help = dialog.findChild<HelpDialog *>(QString(), Qt::FindDirectChildrenOnly);
    if (help == nullptr) {
        help = new HelpDialog(dialog);
        help->moveBeside(dialog);
    }
    help->m_browser->showKeyword(keyword);
    help->show();
    help->raise();
    help->activateWindow();
}

HelpDialog::HelpDialog(QWidget &dialog) : QDialog(&dialog), m_browser(new HelpBrowser(this))
{
    setObjectName(QStringLiteral("helpDialog"));
    m_browser->setObjectName(QStringLiteral("helpDialogBrowser"));
    setWindowTitle(tr("Help"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);
    m_browser->setFocus();
}

/// To the right of the dialog, else to its left, narrower if necessary. Covers a part of a dialog that leaves less room
/// than the help needs.
void HelpDialog::moveBeside(const QWidget &dialog)
{
    const QRect frame = dialog.frameGeometry();
    const QRect screen = dialog.screen()->availableGeometry();
    const int roomLeft = frame.left() - screen.left();
    const int roomRight = screen.right() - frame.right();
    const int wanted = m_browser->minimumWidth() * 3 / 2;
    const bool isRight = roomRight >= std::min(wanted, roomLeft);
    const int room = std::clamp(isRight ? roomRight : roomLeft, m_browser->minimumWidth(), wanted);
    const int width = std::min(room, screen.width());
    const int x = isRight ? frame.right() + 1 : frame.left() - width;
    const int height = std::min(dialog.height(), screen.height());
    setGeometry(std::clamp(x, screen.left(), screen.right() + 1 - width),
                std::clamp(dialog.geometry().top(), screen.top(), screen.bottom() + 1 - height), width, height);
}
