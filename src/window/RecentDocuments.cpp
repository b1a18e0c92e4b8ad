#include "window/RecentDocuments.h"

#include "foundation/DurableFile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <glib.h>
#include <memory>

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

using List = std::unique_ptr<GBookmarkFile, Freeing>;

// Null for one that cannot be read; a list that is not there yet is an empty one.
List readList(const QString &file)
{
    List list(g_bookmark_file_new());
    if (!QFileInfo::exists(file))
        return list;
    const auto read = Foundation::readRegularFile(file, LargestList);
    const auto size = gsize(read.bytes.size());
    if (!read.succeeded() ||
        !g_bookmark_file_load_from_data(list.get(), read.bytes.constData(), size, nullptr))
        return nullptr;
    return list;
}

void writeList(GBookmarkFile *list, const QString &file)
{
    gsize size = 0;
    const std::unique_ptr<char, Freeing> text(g_bookmark_file_to_data(list, &size, nullptr));
    if (text && QDir().mkpath(QFileInfo(file).path()))
        Foundation::writeFileDurably(file, QByteArray(text.get(), qsizetype(size)));
}

// Of those that this application noted.
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
    const List list = readList(m_file);
    if (!list)
        return;
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded();
    g_bookmark_file_set_mime_type(list.get(), address.constData(), MimeType);
    g_bookmark_file_add_application(list.get(), address.constData(), ApplicationName, CommandLine);
    GDateTime *now = g_date_time_new_now_utc();
    g_bookmark_file_set_visited_date_time(list.get(), address.constData(), now);
    g_date_time_unref(now);
    writeList(list.get(), m_file);
}

QStringList RecentDocuments::paths() const
{
    const List list = readList(m_file);
    if (!list)
        return {};
    QList<QByteArray> addresses = ownAddresses(list.get());
    const auto visited = [&list](const QByteArray &address) {
        return g_bookmark_file_get_visited_date_time(list.get(), address.constData(), nullptr);
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
    const List list = readList(m_file);
    if (!list)
        return;
    for (const QByteArray &address : ownAddresses(list.get()))
        g_bookmark_file_remove_item(list.get(), address.constData(), nullptr);
    writeList(list.get(), m_file);
}
