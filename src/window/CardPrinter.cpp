#include "window/CardPrinter.h"

#include "window/AlertDialog.h"
#include "window/VLWhiteView.h"

#include <QGuiApplication>
#include <QPageSetupDialog>
#include <QPrintDialog>

CardPrinter::CardPrinter(SheetQueue &sheets, VLWhiteView *page)
    : m_sheets(sheets)
    , m_page(page)
{
}

QPrinter &CardPrinter::printer()
{
    if (!m_printer) {
        constexpr qreal Margin = 15; // in millimetres
        m_printer = std::make_unique<QPrinter>();
        m_printer->setPageMargins({Margin, Margin, Margin, Margin}, QPageLayout::Millimeter);
    }
    return *m_printer;
}

void CardPrinter::beginPrint()
{
    // Spoolers and logs keep the names of jobs: this one tells nothing of the contact.
    printer().setDocName(QGuiApplication::applicationDisplayName());
    m_sheets.begin(
        QString(),
        [this](QWidget *parent) {
            auto *dialog = new QPrintDialog(&printer(), parent);
            dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
            return dialog;
        },
        [this](int result) {
            if (result == QDialog::Accepted)
                print();
        });
}

void CardPrinter::beginPageLayout()
{
    m_sheets.begin(QString(), [this](QWidget *parent) { return new QPageSetupDialog(&printer(), parent); },
                   {});
}

void CardPrinter::print()
{
    // The page's fonts and distances are those of the screen.
    printer().setResolution(m_page->logicalDpiX());
    if (m_page->print(printer()))
        return;
    const Foundation::Alert alert{QPrintDialog::tr("The contact could not be printed"),
                                  QPrintDialog::tr("The printer or the file did not take it."),
                                  {QPrintDialog::tr("OK")}};
    m_sheets.begin(QString(), [alert](QWidget *parent) { return new AlertDialog(alert, parent); }, {});
}
