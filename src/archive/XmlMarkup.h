#pragma once

#include <QByteArrayView>

namespace Foundation
{

// Whether an XML text uses only the markup that property lists need: tags that are too short for many
// attributes, and a document type without declarations. The parser compares every attribute of a tag with
// every other, so that a few megabytes of attributes would block it for hours; and declared entities could
// expand without end.
//
// In the encoding of `xml`, ASCII characters must be single bytes, and these bytes must have no other
// meaning. The result is reliable only up to the first grammatical error, where the parser stops. Takes
// linear time.
bool isPlainXml(QByteArrayView xml);

} // namespace Foundation
