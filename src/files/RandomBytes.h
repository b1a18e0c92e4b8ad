#pragma once

#include <QByteArray>

#include <optional>

namespace Foundation
{

// `length` bytes of the system's secure source; nothing if the source fails.
[[nodiscard]] std::optional<QByteArray> secureRandomBytes(quint64 length);

} // namespace Foundation
