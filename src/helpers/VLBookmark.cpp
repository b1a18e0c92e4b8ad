#include "helpers/VLBookmark.h"

#include "helpers/FileBookmark.h"

namespace
{

constexpr quint32 ReadWrite = FileBookmark::WithSecurityScope;
constexpr quint32 ReadOnly = FileBookmark::WithSecurityScope | FileBookmark::SecurityScopeAllowOnlyReadAccess;

} // namespace

QByteArray VLBookmark::bookmarkForURL_RO(const QUrl &url)
{
    return FileBookmark::bookmarkData(url, ReadOnly, QUrl());
}

QByteArray VLBookmark::bookmarkForURL_RW(const QUrl &url)
{
    return FileBookmark::bookmarkData(url, ReadWrite, QUrl());
}

QUrl VLBookmark::urlForBookmark(const QByteArray &bookmark, bool *isStale)
{
    return FileBookmark::urlByResolving(bookmark, FileBookmark::ResolveWithSecurityScope, QUrl(), isStale);
}

QByteArray VLBookmark::docBookmarkForURL_RO(const QUrl &url, const QUrl &docUrl)
{
    return FileBookmark::bookmarkData(url, ReadOnly, docUrl);
}

QByteArray VLBookmark::docBookmarkForURL_RW(const QUrl &url, const QUrl &)
{
    // Required: read-write bookmarks were always made without a document, and resolving them with a document
    // works too.
    return FileBookmark::bookmarkData(url, ReadWrite, QUrl());
}

QUrl VLBookmark::urlForDocBookmark(const QByteArray &bookmark, const QUrl &docUrl, bool *isStale)
{
    return FileBookmark::urlByResolving(bookmark, FileBookmark::ResolveWithSecurityScope, docUrl, isStale);
}
