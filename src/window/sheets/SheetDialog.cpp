#include "window/sheets/SheetDialog.h"

#include "lifecycle/MyDocument.h"
#include "ui_CategoriesSheet.h"
#include "ui_ChangePasswordSheet.h"
#include "ui_InsertPasswordSheet.h"
#include "ui_LabelsSheet.h"
#include "ui_MandatoryPasswordSheet.h"
#include "window/controls/InterfaceProperties.h"
#include "window/controls/InterfaceStyle.h"

#include <QDialogButtonBox>

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

namespace
{

void setUpSheet(const QString &name, MyDocument *document, SheetDialog *sheet)
{
    if (name == CategoryCommands::CategorySheet) {
        Ui::CategoriesSheet ui;
        ui.setupUi(sheet);
        ui.myCategoryTableView->setCategories(document->myCategoryArrayController(),
                                              document->categoryUses());
        // A new category needs a name, so its field gets the focus. Queued, because the action that adds the
        // category is connected later.
        QObject::connect(
            ui.addCategory, &QPushButton::clicked, ui.categoryName,
            [name = ui.categoryName] {
                name->setFocus();
                name->selectAll();
            },
            Qt::QueuedConnection);
    } else if (name == LabelCommands::LabelSheet) {
        Ui::LabelsSheet().setupUi(sheet);
    } else if (name == VLCryptoDoc::ChangePasswordSheet) {
        Ui::ChangePasswordSheet().setupUi(sheet);
    } else if (name == VLCryptoDoc::InsertPasswordSheet) {
        Ui::InsertPasswordSheet().setupUi(sheet);
    } else {
        Ui::MandatoryPasswordSheet().setupUi(sheet);
    }
}

} // namespace

SheetDialog *newSheet(const QString &name, MyDocument *document, Binder &binder, QWidget *parent)
{
    auto *sheet = new SheetDialog(parent);
    setUpSheet(name, document, sheet);
    sheet->arrangeButtons();
    styleInterface(sheet);
    binder.bind(sheet);
    return sheet;
}
