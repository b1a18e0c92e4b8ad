#include "window/CardPrinter.h"

#include "lifecycle/MyDocument.h"
#include "window/AlertDialog.h"
#include "window/PrintedCard.h"
#include "window/VLWhiteView.h"

#include <QGuiApplication>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>

CardPrinter::CardPrinter(SheetQueue &sheets, MyDocument &document)
    : m_sheets(sheets)
    , m_document(document)
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

bool CardPrinter::printCards()
{
    PrintedCard card(m_document.myLabelDictionary());
    // The page's fonts and distances are those of the screen.
    printer().setResolution(card.page().logicalDpiX());
    QPainter painter;
    if (!painter.begin(&printer()))
        return false;
    bool isFirst = true;
    for (const auto &record : m_document.myArrayController()->selectedObjects()) {
        if (!std::exchange(isFirst, false) && !printer().newPage())
            return false;
        card.show(record);
        if (!card.page().print(painter, printer()))
            return false;
    }
    return painter.end();
}

void CardPrinter::print()
{
    if (printCards())
        return;
    const Foundation::Alert alert{QPrintDialog::tr("The contact could not be printed"),
                                  QPrintDialog::tr("The printer or the file did not take it."),
                                  {QPrintDialog::tr("OK")}};
    m_sheets.begin(QString(), [alert](QWidget *parent) { return new AlertDialog(alert, parent); }, {});
}
