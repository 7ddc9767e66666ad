// The properties dialog of a module.
#pragma once

#include <QDialog>
#include <QMap>
#include <QPointer>
#include <QString>

#include <array>
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
/// pressed; the dialog is accepted when none of them refuses.
class SimpleExtendcfgdlg : public QDialog {
    Q_OBJECT
public:
    /// @p par is not owned and must outlive the dialog. @p memoryOwner names the memory map that the caller keeps or
    /// rolls back afterwards. @p locked disables OK.
    SimpleExtendcfgdlg(SimpleExtendPar *par, QString memoryOwner, QWidget *parent, bool locked);
    ~SimpleExtendcfgdlg() override;

signals:
    /// Not emitted by the dialog; whoever emits it reaches every page's saveData.
    void signal_saveData(bool &);
    void signal_defaultAll();

public slots:
    void slot_bttnOK();
    void slot_startHelpSystem();
    /// The factory record of the module's type, built when first asked for and owned by the dialog. Null when it
    /// cannot be built; the next call then tries again.
    SimpleExtendPar *slot_returnDefaultParam();
    void raisePage(QTreeWidgetItem *curItem, QTreeWidgetItem *preItem);

protected:
    void changeEvent(QEvent *event) override;

private:
    /// Every page that a module may have, in the order in which OK saves them.
    enum PageIndex {
        GeneralPage,
        AddressPage,
        AnalogFilterPage,
        AnalogRangePage,
        AnalogOutputTablePage,
        AnalogOutputTypePage,
        DigitalFilterPage,
        DigitalOutputTablePage,
        WeighingPage,
        PageCount
    };

    void initUI();
    void initConnect();
    void buildTree();
    void addGroups();
    template <typename Page>
    void addPage(PageIndex index, const QString &treeText, const QString &tabText);
    void addItem(const QString &text, QWidget *page);
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
    std::array<ParamPage *, PageCount> m_pages{}; ///< null where the module has no such page
    QPointer<QWidget> m_firstRefused;             ///< since OK was pressed
    bool m_hasNoDefaults = false;                 ///< during signal_defaultAll: the default record cannot be built
};
