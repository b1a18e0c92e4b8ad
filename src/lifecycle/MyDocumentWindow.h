#pragma once

#include "foundation/DocumentWindow.h"

// What the address book's document asks of its window beyond any document's.
class MyDocumentWindow : public Foundation::DocumentWindow
{
public:
    // The spinner beside the password field. Must be seen at once: the work behind it blocks the event loop.
    virtual void setDecryptProgressShown(bool shown) = 0;
    virtual void clearPasswordToDecryptField() = 0;
    // Of the record table. A row that is not there is ignored.
    virtual void scrollRowToVisible(qsizetype row) = 0;
    // Identifiers are those of the interface file: "category" and "name".
    virtual void redrawColumn(const QString &identifier) = 0;
};
