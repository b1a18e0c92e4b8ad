#pragma once

#include "browse/BrowseWindow.h"
#include "helpers/views/VLVSplitViewDelegate.h"
#include "values/Color.h"

// What MyDocument needs from its window in addition to BrowseWindow.
class MyDocumentWindow : public BrowseWindow
{
public:
    // Shows the spinner beside the password field. Must paint before it returns, because the following work
    // blocks the event loop.
    virtual void setDecryptProgressShown(bool shown) = 0;
    virtual void clearPasswordToDecryptField() = 0;
    // Shows or hides the strip above the list that says which filter is active.
    virtual void setSearchInfoShown(bool shown) = 0;
    // The rule of the split view with the list and the detail.
    virtual VLVSplitViewDelegate &mySplitViewDelegate() = 0;
    // The colour of text in controls of the desktop.
    virtual Foundation::Color controlTextColor() const = 0;
    // Both open a dialog and return immediately.
    virtual void printWhiteView() = 0;
    virtual void runPageLayout() = 0;
};
