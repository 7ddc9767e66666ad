// What all pages of the properties dialog share.
#pragma once

#include <QMessageBox>
#include <QWidget>

class QBoxLayout;
class QComboBox;
class QLabel;
class QPushButton;
class QVBoxLayout;
struct SimpleExtendPar;

/// One group of parameters of a module.
///
/// A page shows the record from its construction on and writes it only in saveData(). The record is not owned
/// and must outlive the page. The last statement of a page's constructor is setUp().
class ParamPage : public QWidget {
    Q_OBJECT
public:
    /// Shows @p par, the module's record or a default record, in the controls.
    virtual void initData(SimpleExtendPar *par) = 0;
    /// Writes the controls into the record. False after a refusal that the user has been told about; what was
    /// written before the refusal stays written.
    virtual bool saveData() = 0;
    /// Reverts record changes that must not survive a dialog that is not accepted. Most pages have none: values written
    /// by a refused OK stay written.
    virtual void discard() {}
    /// Ends the page's open snapshots of the host's memory because a call of the host has thrown. May throw as well.
    virtual void rollBack() {}

signals:
    /// The value in @p field is about to be refused with a message.
    void signal_refused(QWidget *field);

protected:
    /// The page takes over the window title of @p parent for its messages.
    ParamPage(SimpleExtendPar *par, QWidget *parent);

    /// Builds, wires and shows the page, in this order.
    void setUp();

    virtual void initUI() = 0;
    virtual void initConnect() = 0;
    /// Sets the sizes that depend on the font; called once the page is built and whenever its font changes.
    virtual void fitToFont() {}
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

    /// Refuses the value in @p field: emits signal_refused, then shows @p text in a box with one OK button. Returns
    /// false, which saveData must return at once: the host may have destroyed the page while the box was open.
    bool refuse(QWidget *field, QMessageBox::Icon icon, const QString &text);

    /// The word-wrapped text that says what the page is for.
    static QLabel *newDescription(const QString &text);
    /// The "Defaults" button, which the page places.
    QPushButton *newDefaultsButton();
    /// The same button in its usual place, at the right of a row of its own.
    void addDefaultsButton(QBoxLayout *layout);
    static QPushButton *newButton(const QString &text, const QString &objectName);
    /// A label that leads to @p editor.
    static QLabel *newLabel(const QString &text, QWidget *editor);
    /// Names @p editor of @p channel for programs ("inputRange_3", from the stem) and for people ("Channel 3,
    /// Input Range", from the translated @p column). Assistive technology sees no headers over cell widgets.
    static void nameEditor(QWidget *editor, const QString &stem, int channel, const QString &column);
    /// Sets @p name as accessible name and description; the description contains the tool tip as well. Qt reports the
    /// current text of a combo box in place of its accessible name.
    static void describeEditor(QWidget *editor, const QString &name);
    /// Writes the position of the choice; without a selection the value that has no choice stays as it is stored.
    static void storeSelection(const QComboBox *editor, quint8 &stored);
    /// The layout for all that the page consists of; a page that is larger than its place scrolls.
    QVBoxLayout *newPageLayout();
    /// The rows of a page, as many as there are channels: they scroll by themselves, so that the buttons below them
    /// can be seen, and stay together at the top. The area becomes the parent of @p rows, which has its layout.
    static QWidget *newRowArea(QWidget *rows);

    SimpleExtendPar *m_par;
    QPushButton *m_btnDefault = nullptr; ///< null until newDefaultsButton() was called
};

/// A page that takes its default values from the dialog's default record.
class DefaultsPage : public ParamPage {
    Q_OBJECT
signals:
    /// Asks for the default record, which stays with the receiver. Null when it cannot be built or when nobody
    /// listens.
    SimpleExtendPar *signal_requestDefaultPar();

public slots:
    /// Shows the default values. The record is asked for once and kept; as long as there is none, the controls stay
    /// as they are.
    void slot_btnDefault_clicked();

protected:
    /// @p defaultPar may be null, it is then asked for when needed.
    DefaultsPage(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    /// Wires the "Defaults" button; a page with more to wire calls this as well.
    void initConnect() override;

    SimpleExtendPar *m_defaultPar;
};
