#include "window/sheets/SheetKinds.h"

#include "lifecycle/MyDocument.h"
#include "ui_CategoriesSheet.h"
#include "ui_ChangePasswordSheet.h"
#include "ui_InsertPasswordSheet.h"
#include "ui_LabelsSheet.h"
#include "ui_MandatoryPasswordSheet.h"
#include "window/sheets/SheetDialog.h"

#include <algorithm>

namespace
{

template <class Form>
void setUpForm(SheetDialog *sheet, MyDocument *)
{
    Form().setupUi(sheet);
}

void setUpCategories(SheetDialog *sheet, MyDocument *document)
{
    Ui::CategoriesSheet ui;
    ui.setupUi(sheet);
    ui.myCategoryTableView->setCategories(document->myCategoryArrayController(), document->categoryUses());
    // A new category needs a name, so its field gets the focus. Queued, because the action that adds the
    // category is connected later.
    QObject::connect(
        ui.addCategory, &QPushButton::clicked, ui.categoryName,
        [name = ui.categoryName] {
            name->setFocus();
            name->selectAll();
        },
        Qt::QueuedConnection);
}

} // namespace

const std::vector<SheetKind> &sheetKinds()
{
    static const std::vector<SheetKind> kinds = {
        {CategoryCommands::CategorySheet, "CategoriesSheet", setUpCategories},
        {LabelCommands::LabelSheet, "LabelsSheet", setUpForm<Ui::LabelsSheet>},
        {VLCryptoDoc::MandatoryPasswordSheet, "MandatoryPasswordSheet",
         setUpForm<Ui::MandatoryPasswordSheet>},
        {VLCryptoDoc::ChangePasswordSheet, "ChangePasswordSheet", setUpForm<Ui::ChangePasswordSheet>},
        {VLCryptoDoc::InsertPasswordSheet, "InsertPasswordSheet", setUpForm<Ui::InsertPasswordSheet>},
    };
    return kinds;
}

const SheetKind &sheetKindOfName(const QString &name)
{
    const auto found = std::ranges::find(sheetKinds(), name, &SheetKind::name);
    if (found == sheetKinds().end())
        qFatal("There is no sheet with the name \"%s\".", qPrintable(name));
    return *found;
}
