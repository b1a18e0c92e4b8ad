#include "browse/LabelCommands.h"

const QString LabelCommands::LabelSheet = QStringLiteral("myLabelSheet");

void LabelCommands::editLabelSheet(const Foundation::ActionSender &)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->beginSheet(LabelSheet, [](int) {});
}

void LabelCommands::closeLabelSheet(const Foundation::ActionSender &)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->endSheet(LabelSheet);
    m_host.updateChangeCount(0);
}
