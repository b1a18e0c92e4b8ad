#include "window/binding/ControlAccess.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"
#include "window/controls/ActionDispatcher.h"
#include "window/controls/InterfaceProperties.h"
#include "window/controls/ShownPart.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <limits>

using Foundation::ActionSender;
using Foundation::Value;

QString textOfField(const QLineEdit *field)
{
    return field->text().isNull() ? QStringLiteral("") : field->text();
}

QString textOfField(const QPlainTextEdit *field)
{
    // toPlainText() of the widget would replace no-break spaces by blanks.
    QString text = field->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text.isNull() ? QStringLiteral("") : text;
}

void setTextOfField(QLineEdit *field, const QString &text)
{
    if (field->text() == text)
        return;
    field->setText(text);
    if (!field->hasFocus())
        field->setCursorPosition(0); // So that a long text shows its beginning.
}

void setTextOfField(QPlainTextEdit *field, const QString &text)
{
    if (textOfField(field) != text)
        field->setPlainText(text);
}

void startFieldWithText(QLineEdit *field, const QString &text)
{
    field->setText(text);
    field->setCursorPosition(0);
}

void startFieldWithText(QPlainTextEdit *field, const QString &text)
{
    field->setPlainText(text);
}

void keepUndoStepsOfField(QLineEdit *field, bool keep)
{
    if (keep || !(field->isUndoAvailable() || field->isRedoAvailable()))
        return;
    const int caret = field->cursorPosition();
    field->setText(field->text());
    field->setCursorPosition(caret);
}

void keepUndoStepsOfField(QPlainTextEdit *field, bool keep)
{
    field->setUndoRedoEnabled(keep);
}

void liftLengthLimit(QLineEdit *field)
{
    field->setMaxLength(std::numeric_limits<int>::max());
}

void liftLengthLimit(QPlainTextEdit *) {}

void enableBySelection(QWidget *control, const BoundValue &bound)
{
    if (textProperty(control, InterfaceProperty::BindEnabled).isEmpty())
        control->setEnabled(bound.hasObject);
}

void setRowsOfPopUp(QComboBox *popUp, const KeyPath &rows)
{
    if (!rows.controller())
        return;
    QStringList titles;
    for (const auto &object : rows.controller()->arrangedObjects())
        titles.append(shownLine(Foundation::displayText(object->valueForKeyPath(rows.keyPathOfObjects()))));
    QStringList present;
    for (int i = 0; i < popUp->count(); ++i)
        present.append(popUp->itemText(i));
    if (titles == present)
        return;
    popUp->clear();
    popUp->addItems(titles);
}

int rowOfObject(const KeyPath &rows, const Value &object)
{
    const auto dictionary = object.dictionary();
    return rows.controller() && dictionary ? int(rows.controller()->arrangedIndexOf(dictionary)) : -1;
}

QString nameOfField(const QString &caption, const QString &captionPath)
{
    QString name = caption.trimmed();
    if (name.isEmpty())
        name = Foundation::displayText(defaultLabelDictionary()->value(captionPath.section(u'.', -1)));
    if (name.endsWith(u':'))
        name.chop(1);
    return name;
}

ActionSender senderOfControl(const QWidget *control)
{
    ActionSender sender;
    sender.tag = tagOf(control);
    if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        sender.title = titleWithoutMnemonic(button->text());
    else if (const auto *field = qobject_cast<const QLineEdit *>(control))
        sender.stringValue = field->text();
    else if (const auto *popUp = qobject_cast<const QComboBox *>(control)) {
        sender.indexOfSelectedItem = popUp->currentIndex();
        sender.title = popUp->currentText();
    }
    return sender;
}
