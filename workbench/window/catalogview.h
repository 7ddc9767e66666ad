// The module types to choose from, grouped by family, with a search field.
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
    /// What the tree's drags carry: a type code as decimal digits.
    static QString mimeType() { return QStringLiteral("application/x-simpleextend-type"); }

    /// @p catalog must outlive the view.
    CatalogView(const std::vector<CatalogEntry> &catalog, QWidget *parent);

    /// The current module type; nothing when a family is current or the search hides it.
    std::optional<quint32> currentType() const;

signals:
    void currentTypeChanged();
    /// Double click or Enter on a module type.
    void placeRequested(quint32 typeCode);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill();
    void filter(const QString &text);
    void requestPlace();
    void retranslate();

    const std::vector<CatalogEntry> &m_catalog;
    QLineEdit *m_search;
    QTreeWidget *m_tree;
};
