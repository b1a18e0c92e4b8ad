#pragma once

#include "window/desktop/RecentDocuments.h"

#include <QMenu>

#include <functional>

// The menu "Open Recent": filled whenever it opens. Belongs to the menu.
class RecentDocumentsMenu : public QObject
{
    Q_OBJECT

public:
    using Open = std::function<void(const QString &path)>;

    // `documents` outlives the menu.
    RecentDocumentsMenu(QMenu *menu, RecentDocuments &documents, Open open);

private:
    void fill();

    QMenu *m_menu;
    RecentDocuments &m_documents;
    Open m_open;
};
