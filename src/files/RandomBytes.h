#pragma once

#include <QByteArray>

#include <optional>

namespace Foundation
{

// `length` bytes from the secure random source of the system. Nothing if it fails.
[[nodiscard]] std::optional<QByteArray> secureRandomBytes(quint64 length);

} // namespace Foundation
