#pragma once

#include <QLineEdit>

// A field for a password, whose echo mode says whether the text is readable.
//
// AccessibilityEventFilter drops all events about its text, also while it is readable: a change of the mode
// must not send what was typed before.
class PasswordField : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;
};
