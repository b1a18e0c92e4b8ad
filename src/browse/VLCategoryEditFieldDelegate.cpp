#include "browse/VLCategoryEditFieldDelegate.h"

void VLCategoryEditFieldDelegate::controlTextDidChange()
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->redrawCategoryTable();
    m_commands.synkNotesWithCategory();
}
