#include "window/controls/WholeTextSheet.h"

#include "window/controls/SheetQueue.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr qsizetype LongestPiece = 1'000; // UTF-16 units
constexpr QSize UsualSize(560, 420);

// An invisible character that the text does not contain; null if it contains all candidates.
QChar markFor(const QString &text)
{
    for (const char16_t candidate : u"\u206f\u206e\u206d\u206c\u206b\u206a\u2064\u2063\u2062\u2061\u2060") {
        if (!text.contains(candidate))
            return candidate; // or the null character at the end of the list
    }
    return {};
}

QString withBreaks(const QString &text, QChar mark)
{
    QString broken;
    broken.reserve(text.size() + 2 * (text.size() / LongestPiece + 1));
    qsizetype length = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        const bool isBreak = unit == u'\n' || unit == u'\r' || unit == QChar::ParagraphSeparator;
        // Breaks at the next blank if there is one, and never inside a user-perceived character.
        const bool mayBreak = length >= LongestPiece && !unit.isLowSurrogate() && !unit.isMark() &&
                              (text.at(i - 1).isSpace() || length >= 2 * LongestPiece);
        if (mayBreak && !isBreak) {
            broken += mark;
            broken += u'\n';
            length = 0;
        }
        broken += unit;
        length = isBreak ? 0 : length + 1;
    }
    return broken;
}

QString withoutBreaks(QString raw, QChar mark)
{
    raw.replace(QChar::ParagraphSeparator, u'\n');
    if (!mark.isNull()) {
        raw.remove(QString(mark) + u'\n');
        raw.remove(mark); // The user deleted the break after it.
    }
    return raw;
}

class Editor : public QPlainTextEdit
{
public:
    Editor(const QString &text, QWidget *parent)
        : QPlainTextEdit(parent)
        , m_mark(markFor(text))
    {
        setPlainText(withBreaks(text, m_mark.isNull() ? QChar(0x200b) : m_mark));
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        // Without a mark, these breaks could not be distinguished from those of the text.
        setReadOnly(m_mark.isNull());
    }
    QString wholeText() const { return withoutBreaks(document()->toRawText(), m_mark); }

protected:
    QMimeData *createMimeDataFromSelection() const override
    {
        auto *copied = new QMimeData;
        copied->setText(withoutBreaks(textCursor().selectedText(), m_mark));
        return copied;
    }
    void insertFromMimeData(const QMimeData *source) override
    {
        if (source->hasText() && !isReadOnly())
            insertPlainText(withBreaks(source->text(), m_mark));
    }

private:
    QChar m_mark;
};

// The accessible name of the field, or the text of its label.
QString nameOf(QWidget *field)
{
    QString name = QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name);
    if (name.endsWith(u':'))
        name.chop(1);
    return name;
}

} // namespace

WholeTextSheet::WholeTextSheet(const QString &text, const QString &name, WriteText write, QWidget *parent)
    : QDialog(parent)
    , m_write(std::move(write))
{
    setWindowTitle(name);
    auto *editor = new Editor(text, this);
    m_editor = editor;
    editor->setObjectName(QStringLiteral("wholeText"));
    editor->setAccessibleName(name);
    if (!m_write)
        editor->setReadOnly(true);
    else
        connect(editor, &QPlainTextEdit::textChanged, this, [this, editor] { m_write(editor->wholeText()); });
    auto *buttons = new QDialogButtonBox(this);
    const auto *done = buttons->addButton(tr("Done"), QDialogButtonBox::AcceptRole);
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(editor);
    layout->addWidget(buttons);
    resize(UsualSize);
}

void WholeTextSheet::show(SheetQueue &sheets, QWidget *field, const QString &text, const WriteText &write)
{
    const auto make = [text, write, name = nameOf(field)](QWidget *parent) {
        return new WholeTextSheet(text, name, write, parent);
    };
    if (!qobject_cast<QDialog *>(field->window())) {
        sheets.begin(QString(), make, [](int) {});
        return;
    }
    QDialog *sheet = make(field->window()); // a child of the sheet below, which deletes it
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}
