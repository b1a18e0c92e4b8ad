#pragma once

#include "values/Key.h"

#include <optional>

// What lies in a document file: the keys of its root dictionary and the meaning of its format number. The
// numbers and names stand in files and never change; docs/file-format.md tells the whole.

namespace FileKey
{
inline const Foundation::Key appversion{u"appversion"};
inline const Foundation::Key latestPlatform{
    u"latestPlatform"}; // Written for other readers; nobody here reads it.
inline const Foundation::Key dataArrayData{u"dataArrayData"};
inline const Foundation::Key catArrayData{u"catArrayData"};
inline const Foundation::Key labelDict{u"labelDict"}; // Data from 30100 on, a dictionary before.
inline const Foundation::Key documentCreationDateData{u"documentCreationDateData"};
inline const Foundation::Key salt{u"salt"};
inline const Foundation::Key IV{u"IV"};
inline const Foundation::Key rc{u"rc"};
inline const Foundation::Key sha1_rc{u"sha1-rc"};
inline const Foundation::Key OSXPlatformDictionary{u"OSXPlatformDictionary"};
// Files up to 30000.
inline const Foundation::Key dataArray{u"dataArray"};
inline const Foundation::Key categoryArray{u"categoryArray"};
inline const Foundation::Key crtnDt{u"crtnDt"};
} // namespace FileKey

// The entries of OSXPlatformDictionary: reals as written, read as whole numbers.
namespace PlatformKey
{
inline const Foundation::Key windowRecHeight{u"windowRecHeight"};
inline const Foundation::Key windowRecWidth{u"windowRecWidth"};
inline const Foundation::Key windowRecX{u"windowRecX"};
inline const Foundation::Key windowRecY{u"windowRecY"};
inline const Foundation::Key makeToolbarVisibleAtDecrypt{u"makeToolbarVisibleAtDecrypt"};
} // namespace PlatformKey

// The number that a save writes, and the top of what is read: a new format raises both at once.
constexpr quint64 CurrentFormatVersion = 30600;
// From here on files have a check pair and a cipher engine of their own.
constexpr quint64 FirstEngineVersion = 30100;

// Which keys the root of a file holds.
enum class FileLayout { A, B, C, D };

// How the loaded buffers are deciphered. Chosen apart from the layout: the two do not change at the same
// numbers.
enum class DecryptPath {
    Release1000,
    Release1100,
    PerField,
    FlagResetting,
    Current,
    NoEngine, // No release ever wrote such a number: nothing can decipher it.
};

// Nothing for a format newer than this program reads.
std::optional<FileLayout> fileLayoutOfVersion(quint64 appversion);
DecryptPath decryptPathOfVersion(quint64 appversion);
