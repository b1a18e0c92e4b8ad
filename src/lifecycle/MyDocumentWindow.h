#pragma once

#include "browse/BrowseWindow.h"
#include "helpers/views/VLVSplitViewDelegate.h"
#include "values/Color.h"

// What the address book's document asks of its window beyond any document's.
class MyDocumentWindow : public BrowseWindow
{
public:
    // The spinner beside the password field. Must be seen at once: the work behind it blocks the event loop.
    virtual void setDecryptProgressShown(bool shown) = 0;
    virtual void clearPasswordToDecryptField() = 0;
    // The strip above the list that tells which filter is in force.
    virtual void setSearchInfoShown(bool shown) = 0;
    // The rule of the list beside the detail.
    virtual VLVSplitViewDelegate &mySplitViewDelegate() = 0;
    // The desktop's colour of text in controls.
    virtual Foundation::Color controlTextColor() const = 0;
    // Both ask the user first, and return at once.
    virtual void printWhiteView() = 0;
    virtual void runPageLayout() = 0;
};
