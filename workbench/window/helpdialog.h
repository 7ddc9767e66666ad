// The help beside a modal dialog, which blocks all windows that it does not own.
#pragma once

#include <QDialog>

class HelpBrowser;

class HelpDialog : public QDialog {
    Q_OBJECT
public:
    /// Shows the help page of a keyword of the plug-in in the help window of @p dialog, which owns that window.
    static void showFor(QWidget &dialog, const QString &keyword);

private:
    explicit HelpDialog(QWidget &dialog);
    void moveBeside(const QWidget &dialog);

    HelpBrowser *m_browser;
};
