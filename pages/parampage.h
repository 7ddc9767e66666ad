// The base classes of the pages of the properties dialog.
#pragma once

#include <QMessageBox>
#include <QWidget>

class ChannelActions;
class QBoxLayout;
class QLabel;
class QPushButton;
class QTableWidget;
class QVariant;
struct SimpleExtendPar;

/// A page for one group of a module's parameters.
///
/// A page shows the record when it is constructed and writes it only in saveData(). It does not own the record, which
/// must outlive it. The last statement of a page's constructor is setUp().
class ParamPage : public QWidget {
    Q_OBJECT
public:
    /// Shows the values of @p par, the module's record or a default record.
    virtual void initData(SimpleExtendPar *par) = 0;
    /// Writes the shown values into the record. Returns false after a refusal, which the page has explained in a
    /// message box; values written before the refusal stay written.
    virtual bool saveData() = 0;
    /// Reverts record changes that must not survive a dialog that is not accepted. Most pages have none: values written
    /// by a refused OK stay written.
    virtual void discard() {}
    /// Ends the page's open snapshots of the host's memory because a call of the host has thrown. May throw as well.
    virtual void rollBack() {}

signals:
    /// Emitted before the message box that refuses the value in @p field.
    void signal_refused(QWidget *field);

protected:
    /// The page uses the window title of @p parent in its message boxes.
    ParamPage(SimpleExtendPar *par, QWidget *parent);

    /// Builds, connects and fills the page, in this order.
    void setUp();

    virtual void initUI() = 0;
    virtual void initConnect() {}
    /// Sets the sizes that depend on the font. Called after initUI() and whenever the font of the page changes.
    virtual void fitToFont() {}
    void changeEvent(QEvent *event) override;

    /// Refuses the value in @p field: emits signal_refused, then shows @p text in a box with one OK button. Returns
    /// false, which saveData must return at once: the host may have destroyed the page while the box was open.
    bool refuse(QWidget *field, QMessageBox::Icon icon, const QString &text);

    /// Returns the word-wrapped text that describes the page.
    static QLabel *newDescription(const QString &text);
    static QPushButton *newButton(const QString &text, const QString &objectName);
    /// Returns a label whose buddy is @p editor.
    static QLabel *newLabel(const QString &text, QWidget *editor);

    /// Sets @p name as accessible name and description; the description contains the tool tip as well. Qt reports the
    /// current text of a combo box in place of its accessible name.
    static void describeEditor(QWidget *editor, const QString &name);

    SimpleExtendPar *m_par;
};

/// A page with a "Defaults" button. The pages with channels are of this class.
///
/// The constructor of such a page is invokable and has the parameters (SimpleExtendPar *par, SimpleExtendPar
/// *defaultPar, QWidget *parent).
class DefaultsPage : public ParamPage {
    Q_OBJECT
public:
    /// Returns the value that the button shows in the editor of @p channel in the column @p stem, as editorValue()
    /// does. Invalid if there is no default record, or no such editor. The page stays unchanged.
    QVariant defaultValue(const char *stem, int channel);

public slots:
    /// Shows the default record. The module's record stays unchanged, and so do the editors if there is no default
    /// record.
    void slot_btnDefault_clicked();

protected:
    using ParamPage::ParamPage;

    /// Connects the button. An override calls this function first.
    void initConnect() override;

    /// Returns the default record, which the page does not own; null if there is none.
    virtual SimpleExtendPar *defaultRecord() = 0;

    /// Registers the editor of @p channel, counted from 0, under the name of its column. Its object name becomes the
    /// two joined, such as "inputRange_3". Every editor of a channel is registered exactly once, in ascending order of
    /// the channels.
    void registerEditor(const char *stem, int channel, QWidget *editor);
    /// Also describes the editor as, for instance, "Channel 3, Input Range", with the translated @p title, because
    /// assistive technology does not read headers for the editors of a table.
    void registerEditor(const char *stem, int channel, QWidget *editor, const QString &title);
    /// Registers the table of the page, whose rows are the channels. Called after the first editor is registered.
    void registerTable(QTableWidget *table);

    /// Adds the button at the right of its own row, which is above what it resets.
    void addDefaultsButton(QBoxLayout *layout);

private:
    QPushButton *m_btnDefault = nullptr;
    ChannelActions *m_channelActions = nullptr; ///< null as long as no editor is registered
};

/// A page that takes its default values from the dialog's default record.
class RecordDefaultsPage : public DefaultsPage {
    Q_OBJECT
signals:
    /// Requests the default record, which the receiver owns. Returns null if it cannot be built or no receiver is
    /// connected.
    SimpleExtendPar *signal_requestDefaultPar();

protected:
    /// @p defaultPar may be null. The page then requests the record when it is needed for the first time.
    RecordDefaultsPage(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent);

    SimpleExtendPar *defaultRecord() override;

private:
    SimpleExtendPar *m_defaultPar;
};
