#include "helpers/transformers/BookmarkTransformers.h"

#include "helpers/FileBookmark.h"

using Foundation::Value;

namespace
{

template <class Part>
Value partOfUrl(const Value &bookmark, Part part)
{
    if (bookmark.isNull())
        return QStringLiteral("");
    bool isStale = false;
    const QUrl url = FileBookmark::urlByResolving(bookmark.dataValue(),
                                                  FileBookmark::ResolveWithSecurityScope, QUrl(), &isStale);
    return url.isEmpty() ? Value() : Value(part(url));
}

} // namespace

Value VLPathFromBookmark::transformedValue(const Value &value) const
{
    return partOfUrl(value, [](const QUrl &url) { return url.path(QUrl::FullyDecoded); });
}

Value VLNameFromBookmark::transformedValue(const Value &value) const
{
    return partOfUrl(value, [](const QUrl &url) { return url.fileName(QUrl::FullyDecoded); });
}
