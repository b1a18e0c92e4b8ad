#pragma once

#include "window/SheetQueue.h"

#include <QPrinter>

#include <memory>

class VLWhiteView;

// Prints the page of the selected contact, and keeps paper and margins between two prints. Both ways begin
// with a dialog of the desktop as a sheet.
class CardPrinter
{
public:
    // Neither is owned; both outlive the printer.
    CardPrinter(SheetQueue &sheets, VLWhiteView *page);

    void beginPrint();
    void beginPageLayout();

    // To the printer or file that was chosen. Tells the user if that failed.
    void print();
    // Made at first use: looking for the printers of a desktop takes a while.
    QPrinter &printer();

private:
    SheetQueue &m_sheets;
    VLWhiteView *m_page;
    std::unique_ptr<QPrinter> m_printer;
};
