#pragma once

#include "values/Value.h"

#include <iosfwd>
#include <optional>
#include <string>

// A value with its whole content as one line of text, so that tests can compare graphs by content and
// failures show them: null, nil (the archived null), true, i32:1, i64:1, u64:1, f32:0x1p+0, f64:0x1p+0,
// date:0x1p+0, "text", <data in hex>, [list], {key=value in order}. Characters that are not printable ASCII
// are written as \uXXXX. The graph must not contain itself.
std::string describe(const Foundation::Value &value);
// The same, and "refused" for nothing.
std::string describe(const std::optional<Foundation::Value> &value);

namespace Foundation
{
void PrintTo(const Value &value, std::ostream *out);
}
