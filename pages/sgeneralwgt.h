// Name and comment of a module.
#pragma once

#include "parampage.h"

class MLineEdit;
class QTextEdit;

class SGeneralWgt : public DefaultsPage {
    Q_OBJECT
public:
    SGeneralWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    bool saveData() override;

public slots:
    /// Cuts the comment to what the configuration block holds, at the cursor rather than at the end.
    void slot_teComment_textChanged();

protected:
    void initUI() override;
    void initConnect() override;

private:
    /// A loaded text and what its editor made of it.
    struct Loaded {
        QString stored;
        QString shown;
    };

    MLineEdit *m_name = nullptr;
    QTextEdit *m_comment = nullptr;
    Loaded m_loadedName;
    Loaded m_loadedComment;
};
