#pragma once

#include <cstddef>
#include <string>

// The first occurrence of `needle` in [begin, end), or null. `needle` must not be empty. BytesReadBehind
// bytes after `end` must be readable, because the search reads in blocks.
//
// Compares the first and the last byte of the needle with a whole block of text at once, so that texts with
// many partial matches take no longer than others.
constexpr std::size_t BytesReadBehind = 16;
const char *findBytes(const char *begin, const char *end, const std::string &needle);
