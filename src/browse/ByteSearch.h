#pragma once

#include <cstddef>
#include <string>

// The first place in [begin, end) where the needle stands, or null. The needle must not be empty, and
// BytesReadBehind bytes behind `end` must be readable: the search reads in blocks.
//
// Compares the first and the last byte of the needle with a block of text at once, so that texts with many
// near misses cost no more than others.
constexpr std::size_t BytesReadBehind = 16;
const char *findBytes(const char *begin, const char *end, const std::string &needle);
