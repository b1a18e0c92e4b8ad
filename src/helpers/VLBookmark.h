#pragma once

#include <QByteArray>
#include <QUrl>

// Bookmarks of files, read-only (RO) or read-write (RW), plain or belonging to a document. See FileBookmark
// for what they outlive. No error is reported: a bookmark that cannot be made is null data, one that resolves
// to nothing a null address. `isStale` must not be null; it tells that the bookmark should be made anew.
class VLBookmark
{
public:
    VLBookmark() = delete;

    [[nodiscard]] static QByteArray bookmarkForURL_RO(const QUrl &url);
    [[nodiscard]] static QByteArray bookmarkForURL_RW(const QUrl &url);
    [[nodiscard]] static QUrl urlForBookmark(const QByteArray &bookmark, bool *isStale);

    [[nodiscard]] static QByteArray docBookmarkForURL_RO(const QUrl &url, const QUrl &docUrl);
    // Belongs to no document: unlike its twin it ignores `docUrl`.
    [[nodiscard]] static QByteArray docBookmarkForURL_RW(const QUrl &url, const QUrl &docUrl);
    [[nodiscard]] static QUrl urlForDocBookmark(const QByteArray &bookmark, const QUrl &docUrl,
                                                bool *isStale);
};
