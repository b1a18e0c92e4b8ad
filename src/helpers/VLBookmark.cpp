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
    // Required: bookmarks for writing were always made without a document, and a reader that asks with one
    // finds them all the same.
    return FileBookmark::bookmarkData(url, ReadWrite, QUrl());
}

QUrl VLBookmark::urlForDocBookmark(const QByteArray &bookmark, const QUrl &docUrl, bool *isStale)
{
    return FileBookmark::urlByResolving(bookmark, FileBookmark::ResolveWithSecurityScope, docUrl, isStale);
}
