// The help pages: one per module family, and an overview.
#pragma once

#include "catalog.h"

#include <QTextBrowser>

class HelpBrowser : public QTextBrowser {
    Q_OBJECT
public:
    explicit HelpBrowser(QWidget *parent);

    /// Opens the page of a help keyword of the plug-in, in either language; the overview for any other keyword.
    void showKeyword(const QString &keyword);
    /// Opens the page of a family; the overview for a family without a page.
    void showFamily(CatalogFamily family);

    /// Inserts the section on many channels, which the pages of several families share, where a page has its name as a
    /// comment.
    QVariant loadResource(int type, const QUrl &name) override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void showPage(const QString &page);
    void retranslate();
};
