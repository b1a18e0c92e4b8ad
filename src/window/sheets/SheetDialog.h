#pragma once

#include "window/binding/Binder.h"

#include <QDialog>

class MyDocument;

// A sheet made from an interface file. Escape and the closing of the sheet press its button of tag 1001, or
// the only one, of tag 1000.
class SheetDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    void reject() override;

    // Puts the buttons that bear a tag into the button box: 1000 confirms, 1001 cancels.
    void arrangeButtons();

private:
    QPushButton *buttonOfTag(int tag) const;
};

// The sheet of that name, which one of the interface files has, bound to the document.
SheetDialog *newSheet(const QString &name, MyDocument *document, Binder &binder, QWidget *parent);
