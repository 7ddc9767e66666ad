// Shows the fields of a station's configuration blocks.
#pragma once

#include "blockdecoder.h"
#include "station.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

class BlockView : public QDialog {
    Q_OBJECT
public:
    explicit BlockView(QWidget *parent);

    /// Shows concatenated blocks, and which modules they lack. Saving suggests @p fileName. The block of the same slot
    /// as before stays selected.
    void setBlocks(const QByteArray &blocks, const std::vector<ModuleSummary> &missing, const QString &fileName);
    /// Selects the block of the module at @p place, if it has one.
    void showBlockOf(Place place);
    /// Shows whether the station has changed since it was compiled.
    void setOutdated(bool isOutdated);

signals:
    /// The user wants to see the blocks of the present station.
    void compileRequested();
    void saved(const QString &path);

private:
    void listBlocks();
    void showFields(int number);
    void save();

    QByteArray m_bytes;
    QString m_fileName;
    QVector<blockdecoder::DecodedBlock> m_blocks;
    QLabel *m_summary;
    QLabel *m_missing;
    QWidget *m_outdated;
    QPushButton *m_save;
    QTreeWidget *m_list;
    QTreeWidget *m_fields;
};
