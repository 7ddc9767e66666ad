#include "helpdock.h"

#include <QEvent>

HelpDock::HelpDock(QWidget *parent) : QDockWidget(parent), m_browser(new HelpBrowser(this))
{
    setObjectName(QStringLiteral("helpDock"));
    m_browser->setObjectName(QStringLiteral("helpBrowser"));
    setWidget(m_browser);
    setWindowTitle(tr("Help"));
}

void HelpDock::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        setWindowTitle(tr("Help"));
    }
}
