#include "sgeneralwgt.h"

#include "basewidgets.h"
#include "simpleextendpar.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTextEdit>

#include <utility>

namespace {

constexpr int maximumNameLength = 24;
constexpr int maximumCommentBytes = 250; ///< in the local 8-bit encoding

bool fits(const QString &comment)
{
    return comment.toLocal8Bit().size() <= maximumCommentBytes;
}

bool splitsPair(const QString &text, int position)
{
    return position > 0 && position < text.size() && text.at(position - 1).isHighSurrogate() &&
           text.at(position).isLowSurrogate();
}

/// Returns how many UTF-16 units of the start of @p text fit between @p before and @p after, without splitting a
/// surrogate pair. Bisects the length, because converting after each character takes O(n^2) for a large paste.
int fittingLength(const QString &before, const QString &text, const QString &after)
{
    int fitting = 0;
    int tooLong = text.size() + 1;
    while (tooLong - fitting > 1) {
        const int middle = fitting + (tooLong - fitting) / 2;
        (fits(before % text.leftRef(middle) % after) ? fitting : tooLong) = middle;
    }
    return splitsPair(text, fitting) ? fitting - 1 : fitting;
}

bool isLoneSurrogate(const QString &text, int position)
{
    return text.at(position).isSurrogate() && !splitsPair(text, position) && !splitsPair(text, position + 1);
}

/// Returns @p text without unpaired surrogates.
QString wholeCharacters(const QString &text)
{
    QString whole;
    whole.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (!isLoneSurrogate(text, i)) {
            whole += text.at(i);
        }
    }
    return whole;
}

/// Shortens @p comment at @p position: first the text before it, from its end, then the text after it. Returns the
/// remaining lengths of both.
std::pair<int, int> fittingLengths(const QString &comment, int position)
{
    QString head = comment.left(position);
    const QString tail = comment.mid(position);
    head.truncate(fittingLength(QString(), head, tail));
    return {head.size(), fittingLength(head, tail, QString())};
}

QString fittingStart(const QString &comment)
{
    return fits(comment) ? comment : comment.left(fittingLength(QString(), comment, QString()));
}

/// Returns @p text as a text edit will return it. These characters take more bytes than those that replace them.
QString plainText(QString text)
{
    const QChar lineEnd = QLatin1Char('\n');
    return text.replace(QLatin1String("\r\n"), QString(lineEnd))
        .replace(QChar::LineSeparator, lineEnd)
        .replace(QChar::ParagraphSeparator, lineEnd)
        .replace(QChar::Nbsp, QLatin1Char(' '));
}

/// Inserts only as much pasted or dropped text as fits, because the layout of a very long text takes minutes.
class CommentEdit : public QTextEdit {
protected:
    void insertFromMimeData(const QMimeData *source) override
    {
        const QString comment = toPlainText();
        const QTextCursor cursor = textCursor();
        const QString head = comment.left(cursor.selectionStart());
        const QString tail = comment.mid(cursor.selectionEnd());
        QString text = plainText(wholeCharacters(source->text()));
        text.truncate(fittingLength(head, text, tail));
        QMimeData fitting;
        fitting.setText(text);
        QTextEdit::insertFromMimeData(&fitting);
    }
};

void removeText(QTextCursor &cursor, int from, int to)
{
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

} // namespace

SGeneralWgt::SGeneralWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : RecordDefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SGeneralWgt::initUI()
{
    m_name = new MLineEdit;
    m_name->setObjectName(QStringLiteral("nameEdit"));
    m_name->setAccessibleName(tr("Name"));
    m_name->setMaxLength(maximumNameLength);
    m_comment = new CommentEdit;
    m_comment->setObjectName(QStringLiteral("commentEdit"));
    m_comment->setAccessibleName(tr("Comment"));
    m_comment->setAcceptRichText(false);
    m_comment->setTabChangesFocus(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newDescription(tr("You can adjust the name and comment for the object.")));
    addDefaultsButton(layout);
    auto *information = new QGroupBox(tr("Information"));
    layout->addWidget(information);

    auto *grid = new QGridLayout(information);
    grid->addWidget(newLabel(tr("&Name:"), m_name), 0, 0);
    grid->addWidget(m_name, 0, 1);
    auto *commentLabel = newLabel(tr("&Comment:"), m_comment);
    const int textTop = m_comment->frameWidth() + qRound(m_comment->document()->documentMargin());
    commentLabel->setContentsMargins(0, textTop, 0, 0); // as high as the first line of the comment
    grid->addWidget(commentLabel, 1, 0, Qt::AlignTop);
    grid->addWidget(m_comment, 1, 1);
}

void SGeneralWgt::initConnect()
{
    RecordDefaultsPage::initConnect();
    connect(m_comment, &QTextEdit::textChanged, this, &SGeneralWgt::slot_teComment_textChanged);
    connect(m_name, &QLineEdit::textChanged, this, &SGeneralWgt::removeLoneSurrogates);
}

void SGeneralWgt::initData(SimpleExtendPar *par)
{
    m_name->setText(wholeCharacters(par->objName.left(maximumNameLength)));
    m_comment->setPlainText(fittingStart(plainText(par->comment)));
    m_comment->document()->setModified(false);
    const QString name = m_name->text();
    const QString comment = m_comment->toPlainText();
    const bool isEdited = par != m_par; // by the Defaults button
    m_loadedName = {isEdited ? name : par->objName, name};
    m_loadedComment = {isEdited || !fits(par->comment) ? comment : par->comment, comment};
}

bool SGeneralWgt::saveData()
{
    // An unedited text is stored as it was loaded, because the editors shorten it and change line ends.
    const auto edited = [](bool isModified, const QString &text, const Loaded &loaded) {
        return isModified || text != loaded.shown ? wholeCharacters(text) : loaded.stored;
    };
    m_par->objName = edited(m_name->isModified(), m_name->text(), m_loadedName);
    m_par->comment = edited(m_comment->document()->isModified(), m_comment->toPlainText(), m_loadedComment);
    return true;
}

/// The maximum length of the line edit counts UTF-16 units, so it may split a surrogate pair. A high surrogate before
/// the cursor stays while there is room for the low one, because some input methods send them separately.
void SGeneralWgt::removeLoneSurrogates()
{
    if (m_name->isRedoAvailable()) {
        return; // after an undo the text must stay, or the next undo does not work
    }
    const QString text = m_name->text();
    int cursor = m_name->cursorPosition();
    const bool hasRoom = text.size() < maximumNameLength;
    const QSignalBlocker blocker(m_name);
    for (int i = text.size() - 1; i >= 0; --i) {
        const bool mayBeCompleted = hasRoom && i + 1 == cursor && text.at(i).isHighSurrogate();
        if (isLoneSurrogate(text, i) && !mayBeCompleted) {
            m_name->setSelection(i, 1);
            m_name->del();
            cursor -= i < cursor ? 1 : 0;
            m_name->setCursorPosition(cursor);
        }
    }
}

void SGeneralWgt::slot_teComment_textChanged()
{
    const QString text = m_comment->toPlainText();
    if (fits(text)) {
        return;
    }
    int position = m_comment->textCursor().position();
    position += splitsPair(text, position) ? 1 : 0;

    const auto [head, tail] = fittingLengths(text, position);
    QTextCursor cut(m_comment->document());
    cut.joinPreviousEditBlock();
    removeText(cut, position + tail, text.size());
    removeText(cut, head, position);
    cut.endEditBlock();
}
