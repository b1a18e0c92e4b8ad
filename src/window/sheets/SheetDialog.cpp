#include "window/sheets/SheetDialog.h"

#include "window/controls/InterfaceProperties.h"
#include "window/controls/InterfaceStyle.h"

#include <QDialogButtonBox>
#include <QPushButton>

using Foundation::Alert;

void SheetDialog::reject()
{
    QPushButton *cancel = buttonOfTag(Alert::SecondButtonReturn);
    QPushButton *closing = cancel ? cancel : buttonOfTag(Alert::FirstButtonReturn);
    if (closing)
        closing->click();
    else
        QDialog::reject();
}

QPushButton *SheetDialog::buttonOfTag(int tag) const
{
    for (QPushButton *button : findChildren<QPushButton *>()) {
        if (tagOf(button) == tag)
            return button;
    }
    return nullptr;
}

void SheetDialog::arrangeButtons()
{
    auto *box = findChild<QDialogButtonBox *>();
    if (QPushButton *confirm = buttonOfTag(Alert::FirstButtonReturn))
        box->addButton(confirm, QDialogButtonBox::AcceptRole);
    if (QPushButton *cancel = buttonOfTag(Alert::SecondButtonReturn))
        box->addButton(cancel, QDialogButtonBox::RejectRole);
}

SheetDialog *newSheet(const SheetKind &kind, MyDocument *document, Binder &binder, QWidget *parent)
{
    auto *sheet = new SheetDialog(parent);
    kind.setUp(sheet, document);
    sheet->arrangeButtons();
    styleInterface(sheet);
    binder.bind(sheet);
    return sheet;
}
