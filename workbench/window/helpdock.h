// The help beside the racks.
#pragma once

#include "helpbrowser.h"

#include <QDockWidget>

class HelpDock : public QDockWidget {
    Q_OBJECT
public:
    explicit HelpDock(QWidget *parent);

    HelpBrowser &browser() { return *m_browser; }

protected:
    void changeEvent(QEvent *event) override;

private:
    HelpBrowser *m_browser;
};
