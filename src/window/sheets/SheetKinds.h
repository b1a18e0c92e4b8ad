#pragma once

#include <QString>

#include <vector>

class MyDocument;
class SheetDialog;

// What the window knows about one sheet of a document. A new sheet is a new row of the table in
// SheetKinds.cpp.
struct SheetKind
{
    QString name; // by which the logic begins and ends it, and of the dialog in the interface file
    const char *interfaceFile;                               // in resources/, without its suffix
    void (*setUp)(SheetDialog *sheet, MyDocument *document); // fills the empty sheet
};

const std::vector<SheetKind> &sheetKinds();
// Ends the program if there is no such sheet: names come from the code alone, so that this is our own
// mistake.
const SheetKind &sheetKindOfName(const QString &name);
