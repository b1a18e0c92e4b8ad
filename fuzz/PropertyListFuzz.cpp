#include "archive/PropertyList.h"

#include <cstdint>
#include <cstdlib>

// A value that was read must be equal after it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Not copied, so that the sanitizer detects reads beyond the input.
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto list = Foundation::readPropertyList(bytes);
    if (!list)
        return 0;
    const QByteArray written = Foundation::writeBinaryPropertyList(*list);
    const auto again = Foundation::readPropertyList(written);
    if (!again || Foundation::writeBinaryPropertyList(*again) != written)
        std::abort();
    return 0;
}
