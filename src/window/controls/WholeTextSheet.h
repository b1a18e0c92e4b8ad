#pragma once

#include <QDialog>

#include <functional>

class QPlainTextEdit;
class SheetQueue;

// Writes a changed text; null if the text is read-only.
using WriteText = std::function<void(const QString &text)>;
// Shows a whole text of which `field` shows the beginning.
using ShowWholeText = std::function<void(QWidget *field, const QString &text, const WriteText &write)>;

// A sheet that shows a whole text of any length for reading or editing. Every change is written immediately,
// as in fields.
//
// A text editor lays out each paragraph as a whole, which takes too long for a paragraph of megabytes. Long
// paragraphs are therefore split into pieces that look like lines of one paragraph. Each such break is marked
// by an invisible character that the text does not contain, and is removed from the text that is written or
// copied.
class WholeTextSheet : public QDialog
{
    Q_OBJECT

public:
    WholeTextSheet(const QString &text, const QString &name, WriteText write, QWidget *parent);

    // Shows the text in a sheet of the window, or, if the field is in another sheet, in a sheet of that
    // sheet.
    static void show(SheetQueue &sheets, QWidget *field, const QString &text, const WriteText &write);

private:
    QPlainTextEdit *m_editor;
    WriteText m_write;
};
