#pragma once

#include "window/desktop/RecentDocuments.h"

#include <QMenu>

#include <functional>

// Fills the menu "Open Recent" each time it opens. A child of the menu.
class RecentDocumentsMenu : public QObject
{
    Q_OBJECT

public:
    using Open = std::function<void(const QString &path)>;

    // `documents` must outlive the menu.
    RecentDocumentsMenu(QMenu *menu, RecentDocuments &documents, Open open);

private:
    void fill();

    QMenu *m_menu;
    RecentDocuments &m_documents;
    Open m_open;
};
