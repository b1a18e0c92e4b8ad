#pragma once

#include "values/Key.h"

#include <optional>

// The keys of the root dictionary of a document file, and the meaning of its format number. Numbers and names
// are stored in files and never change. docs/file-format.md describes the whole format.

namespace FileKey
{
inline const Foundation::Key appversion{u"appversion"};
// Written for other readers; this program does not read it.
inline const Foundation::Key latestPlatform{u"latestPlatform"};
inline const Foundation::Key dataArrayData{u"dataArrayData"};
inline const Foundation::Key catArrayData{u"catArrayData"};
// Data from format 30100 on, a dictionary in older formats.
inline const Foundation::Key labelDict{u"labelDict"};
inline const Foundation::Key documentCreationDateData{u"documentCreationDateData"};
inline const Foundation::Key salt{u"salt"};
inline const Foundation::Key IV{u"IV"};
inline const Foundation::Key rc{u"rc"};
inline const Foundation::Key sha1_rc{u"sha1-rc"};
inline const Foundation::Key OSXPlatformDictionary{u"OSXPlatformDictionary"};
// Keys of files up to format 30000.
inline const Foundation::Key dataArray{u"dataArray"};
inline const Foundation::Key categoryArray{u"categoryArray"};
inline const Foundation::Key crtnDt{u"crtnDt"};
} // namespace FileKey

// The entries of OSXPlatformDictionary. The frame is written as reals and read as whole numbers.
namespace PlatformKey
{
inline const Foundation::Key windowRecHeight{u"windowRecHeight"};
inline const Foundation::Key windowRecWidth{u"windowRecWidth"};
inline const Foundation::Key windowRecX{u"windowRecX"};
inline const Foundation::Key windowRecY{u"windowRecY"};
inline const Foundation::Key makeToolbarVisibleAtDecrypt{u"makeToolbarVisibleAtDecrypt"};
} // namespace PlatformKey

// The number that a save writes, and the highest number that is read: a new format raises both.
constexpr quint64 CurrentFormatVersion = 30600;
// From this number on, files have a check pair and use VLCommonCrypto.
constexpr quint64 FirstEngineVersion = 30100;

// Which keys the root of a file has.
enum class FileLayout { A, B, C, D };

// How the loaded buffers are deciphered. Independent of the layout, because the two change at different
// numbers.
enum class DecryptPath {
    Release1000,
    Release1100,
    PerField,
    FlagResetting,
    Current,
    NoEngine, // No release wrote such a number, so no password is right.
};

// Nothing for a format that is too new for this program.
std::optional<FileLayout> fileLayoutOfVersion(quint64 appversion);
DecryptPath decryptPathOfVersion(quint64 appversion);
