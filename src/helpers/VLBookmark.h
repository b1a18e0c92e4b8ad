#pragma once

#include <QByteArray>
#include <QUrl>

// Bookmarks of files, read-only (RO) or read-write (RW), plain or belonging to a document. See FileBookmark
// for when they stay valid. A bookmark that cannot be made is a null array, and one that resolves to no file
// gives an empty address; no error is reported. `isStale` must not be null; it is set to true if the bookmark
// should be made again. Prescribed; no caller yet.
class VLBookmark
{
public:
    VLBookmark() = delete;

    [[nodiscard]] static QByteArray bookmarkForURL_RO(const QUrl &url);
    [[nodiscard]] static QByteArray bookmarkForURL_RW(const QUrl &url);
    [[nodiscard]] static QUrl urlForBookmark(const QByteArray &bookmark, bool *isStale);

    [[nodiscard]] static QByteArray docBookmarkForURL_RO(const QUrl &url, const QUrl &docUrl);
    // Ignores `docUrl`, unlike docBookmarkForURL_RO(): the bookmark belongs to no document.
    [[nodiscard]] static QByteArray docBookmarkForURL_RW(const QUrl &url, const QUrl &docUrl);
    [[nodiscard]] static QUrl urlForDocBookmark(const QByteArray &bookmark, const QUrl &docUrl,
                                                bool *isStale);
};
