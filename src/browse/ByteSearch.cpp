#include "browse/ByteSearch.h"

#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#else
#include <QByteArrayView>
#endif

#ifdef __SSE2__

const char *findBytes(const char *begin, const char *end, const std::string &needle)
{
    const std::size_t length = needle.size();
    if (std::size_t(end - begin) < length)
        return nullptr;
    const auto load = [](const char *from) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i *>(from));
    };
    const __m128i first = _mm_set1_epi8(needle.front());
    const __m128i last = _mm_set1_epi8(needle.back());
    const char *const lastStart = end - length;
    for (const char *block = begin; block <= lastStart; block += sizeof(__m128i)) {
        const __m128i equal =
            _mm_and_si128(_mm_cmpeq_epi8(first, load(block)), _mm_cmpeq_epi8(last, load(block + length - 1)));
        for (auto candidates = unsigned(_mm_movemask_epi8(equal)); candidates != 0;
             candidates &= candidates - 1) {
            const char *start = block + __builtin_ctz(candidates);
            if (start > lastStart)
                return nullptr;
            if (length <= 2 || std::memcmp(start + 1, needle.data() + 1, length - 2) == 0)
                return start;
        }
    }
    return nullptr;
}

#else

const char *findBytes(const char *begin, const char *end, const std::string &needle)
{
    const QByteArrayView text(begin, end);
    const auto found = text.indexOf(QByteArrayView(needle.data(), qsizetype(needle.size())));
    return found < 0 ? nullptr : begin + found;
}

#endif
