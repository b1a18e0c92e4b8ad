#pragma once

#include <QString>

#include <vector>

class MyDocument;
class SheetDialog;

// The properties of one sheet. For a new sheet, add a row to the table in SheetKinds.cpp.
struct SheetKind
{
    // The name for beginSheet() and endSheet(), which is also that of the dialog in the interface file.
    QString name;
    const char *interfaceFile;                               // in resources/, without its suffix
    void (*setUp)(SheetDialog *sheet, MyDocument *document); // fills the empty sheet
};

const std::vector<SheetKind> &sheetKinds();
// Ends the program if there is no such sheet. Names come only from our own code, so this is a programming
// error.
const SheetKind &sheetKindOfName(const QString &name);
