// The module types of the catalog, grouped by family, with a search field.
#pragma once

#include "catalog.h"

#include <QWidget>

#include <optional>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

class CatalogView : public QWidget {
    Q_OBJECT
public:
    /// Type of the data of a dragged module type: its code as decimal digits.
    static QString mimeType() { return QStringLiteral("application/x-simpleextend-type"); }

    /// @p catalog must outlive the view.
    CatalogView(const std::vector<CatalogEntry> &catalog, QWidget *parent);

    /// The current module type; std::nullopt if a family is current or the search hides the type.
    std::optional<quint32> currentType() const;
    /// Requests to place the current module type. Does nothing without one.
    void requestPlace();

signals:
    void currentTypeChanged();
    /// The user double-clicked a module type or pressed Enter.
    void placeRequested(quint32 typeCode);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill();
    void filter(const QString &text);
    void retranslate();

    const std::vector<CatalogEntry> &m_catalog;
    QLineEdit *m_search;
    QTreeWidget *m_tree;
};
