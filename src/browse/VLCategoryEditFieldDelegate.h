#pragma once

#include "browse/CategoryCommands.h"

// Follows the field of a category's name: every keystroke redraws what shows the name and marks the document
// as edited.
class VLCategoryEditFieldDelegate
{
public:
    // Neither is owned; both outlive the delegate.
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
