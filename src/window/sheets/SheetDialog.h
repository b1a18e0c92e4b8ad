#pragma once

#include "window/binding/Binder.h"
#include "window/sheets/SheetKinds.h"

#include <QDialog>

// A sheet that is made from an interface file. Escape and closing the sheet press the button with tag 1001,
// or the button with tag 1000 if there is no other.
class SheetDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    void reject() override;

    // Moves the buttons with a tag into the button box: 1000 confirms, 1001 cancels.
    void arrangeButtons();

private:
    QPushButton *buttonOfTag(int tag) const;
};

// Makes a sheet of that kind from its interface file and binds it to the document.
SheetDialog *newSheet(const SheetKind &kind, MyDocument *document, Binder &binder, QWidget *parent);
