#include "core/FileLayout.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr quint64 perFieldVersions[] = {2000, 2010, 20100, 20200, 20300, 20301, 20302, 20400, 30000};

bool isPerFieldVersion(quint64 appversion)
{
    return std::find(std::begin(perFieldVersions), std::end(perFieldVersions), appversion) !=
           std::end(perFieldVersions);
}

} // namespace

std::optional<FileLayout> fileLayoutOfVersion(quint64 appversion)
{
    if (appversion > CurrentFormatVersion)
        return std::nullopt;
    if (appversion == 1000)
        return FileLayout::A;
    if (appversion == 1100 || isPerFieldVersion(appversion))
        return FileLayout::B;
    if (appversion == 30100 || appversion == 30200)
        return FileLayout::C;
    return FileLayout::D; // This includes numbers that no release wrote.
}

DecryptPath decryptPathOfVersion(quint64 appversion)
{
    if (appversion == 1000)
        return DecryptPath::Release1000;
    if (appversion == 1100)
        return DecryptPath::Release1100;
    if (isPerFieldVersion(appversion))
        return DecryptPath::PerField;
    if (appversion == 30100 || appversion == 30200 || appversion == 30300 || appversion == 30301)
        return DecryptPath::FlagResetting;
    return appversion >= FirstEngineVersion ? DecryptPath::Current : DecryptPath::NoEngine;
}
