#pragma once

#include <QByteArrayView>

namespace Foundation
{

// Whether an XML text has no markup beyond what property lists need: tags short enough that they cannot hold
// many attributes, and a document type without declarations of its own. The parser compares every attribute
// of a tag, given or declared, with every other, so that a few megabytes of them would keep it busy for
// hours, and entities of the text's own could expand without end.
//
// `xml` is in an encoding in which ASCII characters are single bytes that stand for nothing else. Only what
// the parser would read before it finds a mistake of grammar is judged rightly. Linear in the size.
bool isPlainXml(QByteArrayView xml);

} // namespace Foundation
