#pragma once

#include <QString>

#include <system_error>

namespace Foundation
{

// A sentence for users that tells why a file could not be read or written: "The disk is full." and the like.
// `denied` is the sentence for a lack of permission and `missing` the one for a file or folder that is not
// there, since these depend on what was tried. Only an unknown number is shown itself.
QString fileErrorText(std::errc error, const QString &denied, const QString &missing);

} // namespace Foundation
