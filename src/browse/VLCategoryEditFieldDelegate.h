#pragma once

#include "browse/CategoryCommands.h"

// Handles typing into the field for the name of a category: redraws what shows the name and marks the
// document as edited.
class VLCategoryEditFieldDelegate
{
public:
    // The arguments are not owned and must outlive the delegate.
    VLCategoryEditFieldDelegate(BrowseHost &host, CategoryCommands &commands)
        : m_host(host)
        , m_commands(commands)
    {
    }

    void controlTextDidChange();

private:
    BrowseHost &m_host;
    CategoryCommands &m_commands;
};
