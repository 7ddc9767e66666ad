// Finds modules while the user types.
#pragma once

#include "catalog.h"
#include "stationdocument.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QTreeWidget;

class FindDialog : public QDialog {
    Q_OBJECT
public:
    /// Searches the present station of @p document. Both must outlive the dialog.
    FindDialog(const StationDocument &document, const std::vector<CatalogEntry> &catalog, QWidget *parent);

    /// Shows the dialog with the text selected, so the user can replace it.
    void start();

signals:
    /// The user chose the module at @p place.
    void moduleChosen(Place place);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void search();
    void choose();
    void retranslate();

    const StationDocument &m_document;
    const std::vector<CatalogEntry> &m_catalog;
    QLineEdit *m_query;
    QTreeWidget *m_results;
    QLabel *m_count;
};
