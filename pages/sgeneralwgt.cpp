#include "sgeneralwgt.h"

#include "basewidgets.h"
#include "simpleextendpar.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>

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

/// How much of the start of @p text fits between @p before and @p after, in whole characters. Found by bisection:
/// a pasted book must not be converted once per character.
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

/// @p text without the surrogates that have lost their other half.
QString wholeCharacters(const QString &text)
{
    QString whole;
    whole.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (splitsPair(text, i + 1)) {
            whole += text.midRef(i++, 2);
        } else if (!text.at(i).isSurrogate()) {
            whole += text.at(i);
        }
    }
    return whole;
}

} // namespace

SGeneralWgt::SGeneralWgt(SimpleExtendPar *par, SimpleExtendPar *defaultPar, QWidget *parent)
    : DefaultsPage(par, defaultPar, parent)
{
    setUp();
}

void SGeneralWgt::initUI()
{
    m_name = new MLineEdit;
    m_name->setObjectName(QStringLiteral("nameEdit"));
    m_name->setAccessibleName(tr("Name"));
    m_name->setMaxLength(maximumNameLength);
    m_comment = new QTextEdit;
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
    grid->addWidget(newLabel(tr("&Comment:"), m_comment), 1, 0, Qt::AlignTop);
    grid->addWidget(m_comment, 1, 1);
}

void SGeneralWgt::initConnect()
{
    DefaultsPage::initConnect();
    connect(m_comment, &QTextEdit::textChanged, this, &SGeneralWgt::slot_teComment_textChanged);
    // The line edit counts halves of characters beyond the basic plane and may have cut between them.
    connect(m_name, &QLineEdit::textChanged, this, [this](const QString &text) {
        const QString whole = wholeCharacters(text);
        if (whole != text) {
            m_name->setText(whole);
        }
    });
}

void SGeneralWgt::initData(SimpleExtendPar *par)
{
    m_name->setText(par->objName);
    m_comment->setPlainText(par->comment);
    m_loadedName = {par->objName, m_name->text()};
    m_loadedComment = {fits(par->comment) ? par->comment : m_comment->toPlainText(), m_comment->toPlainText()};
}

bool SGeneralWgt::saveData()
{
    // What nobody has edited goes back as it came: the editors change line ends, for example.
    const auto edited = [](const QString &text, const Loaded &loaded) {
        return text == loaded.shown ? loaded.stored : text;
    };
    m_par->objName = edited(m_name->text(), m_loadedName);
    m_par->comment = edited(m_comment->toPlainText(), m_loadedComment);
    return true;
}

void SGeneralWgt::slot_teComment_textChanged()
{
    const QString text = m_comment->toPlainText();
    if (fits(text)) {
        return;
    }
    int position = m_comment->textCursor().position();
    position += splitsPair(text, position) ? 1 : 0;

    // What precedes the cursor goes first, from the cursor backwards; what follows it only when that was not enough.
    QString head = text.left(position);
    QString tail = text.mid(position);
    head.truncate(fittingLength(QString(), head, tail));
    tail.truncate(fittingLength(head, tail, QString()));

    m_comment->setPlainText(head + tail);
    QTextCursor cursor = m_comment->textCursor();
    cursor.setPosition(head.size());
    m_comment->setTextCursor(cursor);
}
