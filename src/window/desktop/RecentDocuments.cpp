#include "window/desktop/RecentDocuments.h"

#include "files/DurableFile.h"
#include "helpers/VLAppSupportUtility.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <glib.h>
#include <memory>
#include <optional>

namespace
{

constexpr const char *ApplicationName = "vexarel";
constexpr const char *CommandLine = "vexarel %f";
constexpr const char *MimeType = "application/x-vexcards";
constexpr qint64 LargestList = 16 << 20;
constexpr qsizetype MostDocuments = 10;

struct Freeing
{
    void operator()(GBookmarkFile *list) const { g_bookmark_file_free(list); }
    void operator()(char **texts) const { g_strfreev(texts); }
    void operator()(char *text) const { g_free(text); }
};

// The list and the identity of its file. The list is null if the file cannot be read, and empty if there is
// no file yet.
struct SharedList
{
    explicit SharedList(const QString &path)
        : bookmarks(g_bookmark_file_new())
    {
        if (!QFileInfo::exists(path))
            return;
        const auto read = Foundation::readRegularFile(path, LargestList);
        if (read)
            identity = read->identity;
        if (!read || !g_bookmark_file_load_from_data(bookmarks.get(), read->bytes.constData(),
                                                     gsize(read->bytes.size()), nullptr))
            bookmarks = nullptr;
    }
    void write(const QString &path) const
    {
        gsize size = 0;
        const std::unique_ptr<char, Freeing> text(g_bookmark_file_to_data(bookmarks.get(), &size, nullptr));
        if (text && QDir().mkpath(QFileInfo(path).path()))
            // What another program noted at the same time stays, and this is lost.
            (void)Foundation::writeFileDurably(path, QByteArray(text.get(), qsizetype(size)),
                                               VLAppSupportUtility::NameInPaths, identity);
    }

    std::unique_ptr<GBookmarkFile, Freeing> bookmarks;
    std::optional<Foundation::FileIdentity> identity;
};

// Whether this application added the entry.
QList<QByteArray> ownAddresses(GBookmarkFile *list)
{
    QList<QByteArray> addresses;
    const std::unique_ptr<char *, Freeing> all(g_bookmark_file_get_uris(list, nullptr));
    for (char **address = all.get(); *address; ++address) {
        if (g_bookmark_file_has_application(list, *address, ApplicationName, nullptr))
            addresses.append(*address);
    }
    return addresses;
}

} // namespace

RecentDocuments::RecentDocuments(const QString &file)
    : m_file(file)
{
}

QString RecentDocuments::listOfTheDesktop()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/recently-used.xbel");
}

void RecentDocuments::add(const QString &path)
{
    const SharedList shared(m_file);
    GBookmarkFile *const list = shared.bookmarks.get();
    if (!list)
        return;
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded();
    g_bookmark_file_set_mime_type(list, address.constData(), MimeType);
    g_bookmark_file_add_application(list, address.constData(), ApplicationName, CommandLine);
    GDateTime *now = g_date_time_new_now_utc();
    g_bookmark_file_set_visited_date_time(list, address.constData(), now);
    g_date_time_unref(now);
    shared.write(m_file);
}

QStringList RecentDocuments::paths() const
{
    const SharedList shared(m_file);
    GBookmarkFile *const list = shared.bookmarks.get();
    if (!list)
        return {};
    QList<QByteArray> addresses = ownAddresses(list);
    const auto visited = [list](const QByteArray &address) {
        return g_bookmark_file_get_visited_date_time(list, address.constData(), nullptr);
    };
    std::stable_sort(addresses.begin(), addresses.end(),
                     [&](const QByteArray &left, const QByteArray &right) {
                         return g_date_time_compare(visited(left), visited(right)) > 0;
                     });
    QStringList paths;
    for (const QByteArray &address : addresses) {
        const QString path = QUrl::fromEncoded(address).toLocalFile();
        if (paths.size() < MostDocuments && !path.isEmpty() && QFileInfo::exists(path))
            paths.append(path);
    }
    return paths;
}

void RecentDocuments::clear()
{
    const SharedList shared(m_file);
    GBookmarkFile *const list = shared.bookmarks.get();
    if (!list)
        return;
    const QList<QByteArray> addresses = ownAddresses(list);
    for (const QByteArray &address : addresses) {
        g_bookmark_file_remove_application(list, address.constData(), ApplicationName, nullptr);
        gsize others = 0;
        g_strfreev(g_bookmark_file_get_applications(list, address.constData(), &others, nullptr));
        if (others == 0)
            g_bookmark_file_remove_item(list, address.constData(), nullptr);
    }
    if (!addresses.isEmpty())
        shared.write(m_file);
}
