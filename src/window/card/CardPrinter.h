#pragma once

#include "values/Result.h"
#include "window/controls/SheetQueue.h"

#include <QCoreApplication>
#include <QPrinter>

#include <memory>

class MyDocument;

// Prints the selected contacts, each beginning on a new sheet of paper, and keeps paper and margins for the
// next print. Both operations begin with a dialog of the toolkit as a sheet.
class CardPrinter
{
    Q_DECLARE_TR_FUNCTIONS(CardPrinter)
public:
    // The arguments are not owned and must outlive this object.
    CardPrinter(SheetQueue &sheets, MyDocument &document);

    void beginPrint();
    void beginPageLayout();

    // Prints to the chosen printer or file. Shows an alert if that failed.
    void print();
    // Made at the first use, because finding the printers of the desktop takes time.
    QPrinter &printer();

private:
    enum class PrintError { NoPlaceOnPaper, Refused, Incomplete };
    Foundation::Result<void, PrintError> printCards();

    SheetQueue &m_sheets;
    MyDocument &m_document;
    std::unique_ptr<QPrinter> m_printer;
};
