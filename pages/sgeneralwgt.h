// The General page: name and comment of a module.
#pragma once

#include "parampage.h"

class MLineEdit;
class QTextEdit;

class SGeneralWgt : public RecordDefaultsPage {
    Q_OBJECT
public:
    SGeneralWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    void initData(SimpleExtendPar *par) override;
    bool saveData() override;

public slots:
    /// Truncates the comment to the size that the configuration block can hold, at the cursor rather than at the end.
    /// One undo step reverts the cut and the edit that made it necessary.
    void slot_teComment_textChanged();

protected:
    void initUI() override;
    void initConnect() override;

private:
    void removeLoneSurrogates();

    /// A text as it was loaded and as its editor showed it.
    struct Loaded {
        QString stored;
        QString shown;
    };

    MLineEdit *m_name = nullptr;
    QTextEdit *m_comment = nullptr;
    Loaded m_loadedName;
    Loaded m_loadedComment;
};
