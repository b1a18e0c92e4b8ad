#pragma once

#include "platform/Actions.h"
#include "window/binding/KeyPath.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

// Functions for the Binder that differ by the type of the control.

// The text of a field, with every character as it was entered.
QString textOfField(const QLineEdit *field);
QString textOfField(const QPlainTextEdit *field);
// Set the text. Do nothing if the field has that text already, so that it keeps its cursor and undo steps.
void setTextOfField(QLineEdit *field, const QString &text);
void setTextOfField(QPlainTextEdit *field, const QString &text);
// Set the text and always reset undo steps, selection and cursor.
void startFieldWithText(QLineEdit *field, const QString &text);
void startFieldWithText(QPlainTextEdit *field, const QString &text);
// Remove the undo steps only. With `keep` false, a text editor records no new ones.
void keepUndoStepsOfField(QLineEdit *field, bool keep);
void keepUndoStepsOfField(QPlainTextEdit *field, bool keep);
// Remove the length limit of a field. Otherwise a truncated text would be written back at the next keystroke.
void liftLengthLimit(QLineEdit *field);
void liftLengthLimit(QPlainTextEdit *field);

// Disables a control while no object is selected, unless its interface file has a condition for that.
void enableBySelection(QWidget *control, const BoundValue &bound);

// Makes a row of the pop-up for each object that a controller shows, with the text under one key.
void setRowsOfPopUp(QComboBox *popUp, const KeyPath &rows);
// The row of an object, or -1.
int rowOfObject(const KeyPath &rows, const Foundation::Value &object);

// The accessible name of a field: its caption without the final colon, or the default caption if the user
// left it empty. `captionPath` is the key path of the caption in the document.
QString nameOfField(const QString &caption, const QString &captionPath);

// The properties of a control for the actions that it sends.
Foundation::ActionSender senderOfControl(const QWidget *control);
