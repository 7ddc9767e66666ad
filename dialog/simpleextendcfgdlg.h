// The properties dialog of a module.
#pragma once

#include <QDialog>
#include <QMap>
#include <QPointer>
#include <QString>

#include <memory>

class ParamPage;
class QAction;
class QHBoxLayout;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;
struct SimpleExtendPar;

/// A tree of parameter groups and the page of the selected group. The pages write the module's record only when OK is
/// pressed. The dialog is accepted if none of them refuses.
class SimpleExtendcfgdlg : public QDialog {
    Q_OBJECT
public:
    /// @p par is not owned and must outlive the dialog. @p memoryOwner is the station whose memory map the caller keeps
    /// or rolls back afterwards. @p locked disables OK.
    SimpleExtendcfgdlg(SimpleExtendPar *par, QString memoryOwner, QWidget *parent, bool locked);
    ~SimpleExtendcfgdlg() override;

signals:
    /// Never emitted by the dialog. It is connected to saveData() of every page. The argument is ignored.
    void signal_saveData(bool &);
    /// Emitted by the "Default All" button. It is connected to slot_btnDefault_clicked() of every page that has it.
    void signal_defaultAll();

public slots:
    /// Saves every page, even after a refusal. Accepts the dialog if none refuses, else shows the first refused field.
    void slot_bttnOK();
    /// Opens the host's online help at the keyword of the module's kind.
    void slot_startHelpSystem();
    /// Returns the factory record of the module's type, which the dialog owns. The first call builds it. Returns null
    /// if that fails; the next call then tries again.
    SimpleExtendPar *slot_returnDefaultParam();
    /// Shows the page of @p curItem; no-op for the root and for null.
    void raisePage(QTreeWidgetItem *curItem, QTreeWidgetItem *preItem);

protected:
    void changeEvent(QEvent *event) override;

private:
    void initUI();
    void initConnect();
    void buildTree();
    void addGroups();
    void connectPage(ParamPage *page);
    void addItem(const QString &treeText, const QString &tabText, ParamPage *page);
    QHBoxLayout *newButtonRow();
    template <typename Call>
    void callHost(Call &&call);
    void savePages();
    void showRefusal(QWidget *field);
    void fitToFont();
    void revealField(QWidget *field);

    QString m_memoryOwner;
    QString m_helpKeyword;
    std::unique_ptr<SimpleExtendPar> m_defaultPar;
    SimpleExtendPar *m_par;
    QTreeWidget *m_tree = nullptr;
    QStackedWidget *m_stack = nullptr;
    QMap<QTreeWidgetItem *, QWidget *> m_pageOfItem;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
    QPushButton *m_defaultAllButton = nullptr;
    QPushButton *m_helpButton = nullptr;
    QAction *m_helpAction = nullptr;
    QMap<int, ParamPage *> m_pages;   ///< in save order
    QPointer<QWidget> m_firstRefused; ///< since OK was pressed
    bool m_hasNoDefaults = false;     ///< during signal_defaultAll: the default record cannot be built
};
