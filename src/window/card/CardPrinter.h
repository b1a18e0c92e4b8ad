#pragma once

#include "window/controls/SheetQueue.h"

#include <QPrinter>

#include <memory>

class MyDocument;

// Prints the pages of the selected contacts, each on sheets of its own, and keeps paper and margins between
// two prints. Both ways begin with a dialog of the desktop as a sheet.
class CardPrinter
{
public:
    // Neither is owned; both outlive the printer.
    CardPrinter(SheetQueue &sheets, MyDocument &document);

    void beginPrint();
    void beginPageLayout();

    // To the printer or file that was chosen. Tells the user if that failed.
    void print();
    // Made at first use: looking for the printers of a desktop takes a while.
    QPrinter &printer();

private:
    // Why they could not be printed; null if they were.
    QString printCards();

    SheetQueue &m_sheets;
    MyDocument &m_document;
    std::unique_ptr<QPrinter> m_printer;
};
