#pragma once

namespace Foundation
{

// Must be called first by every program that opens documents. It disables core dumps, which would write
// deciphered content to the disk, and makes a write beyond the file size limit fail with an error instead of
// killing the process.
void prepareProcess();

} // namespace Foundation
