// The channels of a station with a search field and a switch for changed channels.
#pragma once

#include "station.h"

#include <QPointer>
#include <QWidget>

class ChannelFilter;
class ChannelModel;
class ChannelSelection;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QTableView;

/// Reads the channels only while it is active.
class ChannelView : public QWidget {
    Q_OBJECT
public:
    explicit ChannelView(QWidget *parent);

    /// Shows @p station, which must outlive the view or the next call.
    void setStation(const Station *station);

    /// A view that is not active has no channels. A new view is not active.
    void setActive(bool isActive);

signals:
    /// The user double-clicked a channel of the module at @p place, or pressed Enter.
    void propertiesRequested(Place place);

protected:
    void changeEvent(QEvent *event) override;

private:
    void addActions();
    void copy() const;
    void saveCsv();
    void updateCount();
    void fitColumns();
    void retranslate();

    QPointer<const Station> m_station;
    bool m_isActive = false;
    ChannelModel *m_model;
    ChannelFilter *m_filter;
    QLineEdit *m_search;
    QCheckBox *m_changedOnly;
    QLabel *m_count;
    QTableView *m_table;
    ChannelSelection *m_selection = nullptr;
    QAction *m_copy;
    QAction *m_save;
};
