#pragma once

#include <QDialog>

#include <functional>

class QPlainTextEdit;
class SheetQueue;

// Takes over a changed text; null where the text is only to be read.
using WriteText = std::function<void(const QString &text)>;
// Shows all of a text of which a field shows the beginning.
using ShowWholeText = std::function<void(QWidget *field, const QString &text, const WriteText &write)>;

// All of a text, however long, to be read or edited. Every change is written at once, as in the fields.
//
// A text editor lays out a paragraph as a whole, and one of megabytes without end. So long paragraphs are
// broken into pieces that look like lines of one paragraph. Such a break is marked by an invisible character
// that the text does not have, and is taken out again of what is written and copied.
class WholeTextSheet : public QDialog
{
    Q_OBJECT

public:
    WholeTextSheet(const QString &text, const QString &name, WriteText write, QWidget *parent);

    // As a sheet of the window; over a field of another sheet, as a sheet of that.
    static void show(SheetQueue &sheets, QWidget *field, const QString &text, const WriteText &write);

private:
    QPlainTextEdit *m_editor;
    WriteText m_write;
};
