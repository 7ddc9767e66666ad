#include "textfiledialog.h"

#include "windowsize.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {

constexpr qint64 shownSize = 1024LL * 1024; // bytes

} // namespace

TextFileDialog::TextFileDialog(const QString &path, int line, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("textFileDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(titleText(QDir::toNativeSeparators(path)));
    auto *text = new QPlainTextEdit;
    text->setObjectName(QStringLiteral("fileText"));
    text->setReadOnly(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QFile file(path);
    text->setPlainText(file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.read(shownSize))
                                                      : file.errorString());
    QTextCursor cursor(text->document()->findBlockByNumber(qMax(line - 1, 0)));
    cursor.movePosition(QTextCursor::EndOfBlock, line == 0 ? QTextCursor::MoveAnchor : QTextCursor::KeepAnchor);
    text->setTextCursor(cursor);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
    resizeToFit(*this, {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 30});
}
