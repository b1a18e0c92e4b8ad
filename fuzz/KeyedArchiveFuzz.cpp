#include "archive/KeyedArchive.h"

#include <cstdint>
#include <cstdlib>

// Document files and their enciphered parts are archives. A value that was read must be equal after it is
// archived and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Not copied, so that the sanitizer detects reads beyond the input.
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto root = Foundation::unarchivedRoot(bytes);
    if (bytes.startsWith("bplist") && Foundation::canBeUnarchived(bytes) != root.has_value())
        std::abort();
    if (!root)
        return 0;
    const QByteArray archived = Foundation::archivedData(*root);
    const auto again = Foundation::unarchivedRoot(archived);
    if (!again || !Foundation::canBeUnarchived(archived) || Foundation::archivedData(*again) != archived)
        std::abort();
    return 0;
}
