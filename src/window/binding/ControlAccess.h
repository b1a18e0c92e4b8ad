#pragma once

#include "platform/Actions.h"
#include "window/binding/KeyPath.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

// What the Binder needs of the different kinds of controls.

// The text of a field, every character as it was put in.
QString textOfField(const QLineEdit *field);
QString textOfField(const QPlainTextEdit *field);
// Leaves the field alone, with its caret and its undo steps, if it shows that text already.
void setTextOfField(QLineEdit *field, const QString &text);
void setTextOfField(QPlainTextEdit *field, const QString &text);
// The same, but the undo steps, the selection and the caret go in any case.
void startFieldWithText(QLineEdit *field, const QString &text);
void startFieldWithText(QPlainTextEdit *field, const QString &text);
// The undo steps go and all else stays. A text editor makes none from here on, unless it is to keep them.
void keepUndoStepsOfField(QLineEdit *field, bool keep);
void keepUndoStepsOfField(QPlainTextEdit *field, bool keep);
// Lets a field hold any text: a cut one would be written back at the next keystroke.
void liftLengthLimit(QLineEdit *field);
void liftLengthLimit(QPlainTextEdit *field);

// Disables a control that has no selected object to show, unless its interface file gives it another
// condition.
void enableBySelection(QWidget *control, const BoundValue &bound);

// The rows of a pop-up are the objects that a controller shows, each by the text under one key.
void setRowsOfPopUp(QComboBox *popUp, const KeyPath &rows);
// -1 for an object that is not there.
int rowOfObject(const KeyPath &rows, const Foundation::Value &object);

// The name of a field for assistive technology: its caption without the colon at the end, or the caption that
// new documents have where the user left it empty. The path is that of the caption in the document.
QString nameOfField(const QString &caption, const QString &captionPath);

// What an action learns of the control that sent it.
Foundation::ActionSender senderOfControl(const QWidget *control);
