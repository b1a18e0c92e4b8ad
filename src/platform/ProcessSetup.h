#pragma once

namespace Foundation
{

// What every program that opens documents does first: no core dump may put plain content on the disk, and a
// limit on the size of files makes a write fail, which can be told, instead of killing the process.
void prepareProcess();

} // namespace Foundation
