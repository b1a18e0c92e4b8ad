#pragma once

#include <QByteArray>
#include <QUrl>

// References to files that stay valid when the file is renamed within its folder, or is moved together with a
// document. They are stored in the settings and contain nothing of the file's content.
//
// Layout, big-endian: the magic number 0x56584246 ("VXBF"), 32 bits; version 1, 8 bits; options, 32 bits;
// device, inode and birth of the file (see PersistentFileId), 64 bits each; the absolute path and the path
// relative to the folder of the document, each as a length in bytes (32 bits) and the bytes of the file
// system. The second path is empty in a bookmark that belongs to no document. The settings of users contain
// these bookmarks, so the numbers must never change.
class FileBookmark
{
public:
    // Options for making a bookmark. They are stored, but have no effect on Linux, which has no security
    // scopes.
    static constexpr quint32 WithSecurityScope = 2048;
    static constexpr quint32 SecurityScopeAllowOnlyReadAccess = 4096;
    // Option for resolving a bookmark.
    static constexpr quint32 ResolveWithSecurityScope = 1024;

    FileBookmark() = delete;

    // Makes a bookmark of the local file `url`. If `relativeTo` is not empty, it is the file of the document
    // to which the bookmark belongs. Returns a null array if the file does not exist or if one of the
    // addresses is no local file.
    [[nodiscard]] static QByteArray bookmarkData(const QUrl &url, quint32 options, const QUrl &relativeTo);

    // Looks for the file at the bookmarked path, then at the path relative to the folder of the document
    // `relativeTo`, then under another name in its old folder. Returns an empty address if there is none, or
    // if `data` is no bookmark. Sets *isStale to true if the bookmark should be made again, because the file
    // was not at the bookmarked path, or another file is there now, for example after a save that replaced
    // the file.
    [[nodiscard]] static QUrl urlByResolving(const QByteArray &data, quint32 options, const QUrl &relativeTo,
                                             bool *isStale);
};
