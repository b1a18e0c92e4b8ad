#pragma once

#include <QByteArray>
#include <QUrl>

// References to files that outlive a rename within the folder, and a move together with a document. They are
// kept in the settings and hold no content of a file.
//
// Layout, big-endian: the magic number 0x56584246 ("VXBF"), 32 bits; version 1, 8 bits; options, 32 bits;
// device, inode and birth of the file (see PersistentFileId), 64 bits each; the absolute path and the path
// from the document's folder, each as 32 bits of length in bytes and the bytes as the file system has them.
// The second path is empty in a bookmark that belongs to no document. Numbers lie in users' settings: never
// renumber.
class FileBookmark
{
public:
    // For making. Linux has no scopes of its own to ask for: the options are kept and ask for nothing.
    static constexpr quint32 WithSecurityScope = 2048;
    static constexpr quint32 SecurityScopeAllowOnlyReadAccess = 4096;
    // For resolving.
    static constexpr quint32 ResolveWithSecurityScope = 1024;

    FileBookmark() = delete;

    // Null for a missing file, an address that is no local file, or a document that is given but no local
    // file. A null `relativeTo` belongs to no document.
    [[nodiscard]] static QByteArray bookmarkData(const QUrl &url, quint32 options, const QUrl &relativeTo);

    // The file at the bookmarked path, otherwise at the path from the folder of the document `relativeTo`,
    // otherwise the bookmarked file under a new name in its old folder. Null when there is none, and for data
    // that is no bookmark. *isStale tells that the bookmark should be made anew: the path was found
    // otherwise, or another file stands there now, as after a save that replaces the file.
    [[nodiscard]] static QUrl urlByResolving(const QByteArray &data, quint32 options, const QUrl &relativeTo,
                                             bool *isStale);
};
