#pragma once

#include <QLineEdit>

// A field that takes a password, in clear or not as its echo mode says.
//
// AccessibilityEventFilter keeps every event about its text from assistive technology, in clear mode too:
// switching the mode must not send what was typed before.
class PasswordField : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;
};
