#include "window/SheetDialog.h"

#include "lifecycle/VLCryptoDoc.h"
#include "ui_MandatoryPasswordSheet.h"
#include "window/InterfaceProperties.h"
#include "window/InterfaceStyle.h"

#include <QDialogButtonBox>

using Foundation::Alert;

void SheetDialog::reject()
{
    if (QPushButton *cancel = buttonOfTag(Alert::SecondButtonReturn))
        cancel->click();
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

SheetDialog *newSheet(const QString &name, Binder &binder, QWidget *parent)
{
    if (name != VLCryptoDoc::MandatoryPasswordSheet)
        return nullptr;
    auto *sheet = new SheetDialog(parent);
    Ui::MandatoryPasswordSheet().setupUi(sheet);
    sheet->arrangeButtons();
    styleInterface(sheet);
    binder.bind(sheet);
    return sheet;
}
