#pragma once

#include <QString>

#include <system_error>

namespace Foundation
{

// A sentence for users that says why a file could not be read or written, such as "The disk is full.".
// `denied` is the sentence for a lack of permission and `missing` the sentence for a file or folder that does
// not exist, because both depend on the operation. The number of an unknown error is part of the sentence.
QString fileErrorText(std::errc error, const QString &denied, const QString &missing);

} // namespace Foundation
