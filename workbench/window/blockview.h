// Shows the fields of a station's configuration blocks.
#pragma once

#include "blockdecoder.h"

#include <QDialog>

class QTreeWidget;

class BlockView : public QDialog {
    Q_OBJECT
public:
    /// @p blocks are concatenated. Saving suggests @p fileName.
    BlockView(const QByteArray &blocks, QString fileName, QWidget *parent);

private:
    void listBlocks();
    void showFields(int number);
    void save();

    QByteArray m_bytes;
    QString m_fileName;
    QVector<blockdecoder::DecodedBlock> m_blocks;
    QTreeWidget *m_list;
    QTreeWidget *m_fields;
};
