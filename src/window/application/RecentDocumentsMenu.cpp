#include "window/application/RecentDocumentsMenu.h"

#include "window/controls/ActionDispatcher.h"
#include "window/controls/SafeText.h"

#include <QDir>
#include <QFileInfo>

namespace
{

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

// Documents with equal names also show their folders.
QString titleOf(const QString &path, const QStringList &all)
{
    const auto isNamesake = [&path](const QString &other) { return nameOf(other) == nameOf(path); };
    if (std::count_if(all.begin(), all.end(), isNamesake) == 1)
        return nameOf(path);
    QString folder = QFileInfo(path).absolutePath();
    if (folder == QDir::homePath() || folder.startsWith(QDir::homePath() + u'/'))
        folder.replace(0, QDir::homePath().size(), u'~');
    return RecentDocumentsMenu::tr("%1 — %2").arg(nameOf(path), folder);
}

} // namespace

RecentDocumentsMenu::RecentDocumentsMenu(QMenu *menu, RecentDocuments &documents, Open open)
    : QObject(menu)
    , m_menu(menu)
    , m_documents(documents)
    , m_open(std::move(open))
{
    connect(menu, &QMenu::aboutToShow, this, &RecentDocumentsMenu::fill);
}

void RecentDocumentsMenu::fill()
{
    m_menu->clear();
    const QStringList paths = m_documents.paths();
    for (const QString &path : paths) {
        QAction *item = m_menu->addAction(titleOfText(withoutReorderingCharacters(titleOf(path, paths))));
        connect(item, &QAction::triggered, this, [this, path] { m_open(path); });
    }
    if (paths.isEmpty())
        m_menu->addAction(tr("No Recent Documents"))->setEnabled(false);
    m_menu->addSeparator();
    QAction *clear = m_menu->addAction(tr("&Clear Menu"));
    clear->setEnabled(!paths.isEmpty());
    connect(clear, &QAction::triggered, this, [this] { m_documents.clear(); });
}
