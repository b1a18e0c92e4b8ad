#include "helpers/VLUrlResolutor.h"

#include "files/FileIdentity.h"
#include "helpers/VLNetValidator.h"
#include "helpers/VLStringUtils.h"
#include "platform/Services.h"

#include <algorithm>
#include <optional>
#include <span>

namespace
{

constexpr QLatin1String FtpPrefix("ftp://");
constexpr QLatin1String MailPrefix("mailto:");
constexpr QLatin1String FilePrefix("file://");

struct Scheme
{
    QLatin1String prefix;
    bool (VLUrlResolutor::*open)(const QString &, const QString &, const QString &);
};

constexpr Scheme CommonSchemes[] = {
    {QLatin1String("http://"), &VLUrlResolutor::openHttp},
    {QLatin1String("https://"), &VLUrlResolutor::openHttps},
    {FtpPrefix, &VLUrlResolutor::openFtp},
    {MailPrefix, &VLUrlResolutor::openMail},
};

// telnet:// is missing on purpose: desktops have no program for it. Such an address is tried with the default
// protocol, and the browser then reports the error.
constexpr Scheme RareSchemes[] = {
    {QLatin1String("feed://"), &VLUrlResolutor::openFeed},
    {FilePrefix, &VLUrlResolutor::openFile},
};

const Scheme *schemeOf(const QString &address, std::span<const Scheme> schemes)
{
    const auto found = std::find_if(schemes.begin(), schemes.end(),
                                    [&](const Scheme &scheme) { return address.startsWith(scheme.prefix); });
    return found == schemes.end() ? nullptr : &*found;
}

// Even in strict mode, the parser accepts blanks and control characters outside ASCII, and halves of
// surrogate pairs.
bool isAddressText(const QString &text)
{
    return text.isValidUtf16() && std::none_of(text.cbegin(), text.cend(), [](QChar unit) {
               return unit.isSpace() || unit.category() == QChar::Other_Control;
           });
}

bool openAddress(const QString &address)
{
    if (!isAddressText(address))
        return false;
    const QUrl url(address, QUrl::StrictMode);
    return url.isValid() && Foundation::Services::shared().workspace().openUrl(url);
}

QString ftpAddress(const QString &address, const QString &user, const QString &password)
{
    if (user.isEmpty() || password.isEmpty())
        return address;
    return FtpPrefix + user + u':' + password + u'@' + address.mid(FtpPrefix.size());
}

} // namespace

VLUrlResolutor::VLUrlResolutor()
    : m_defaultProtocolType(QStringLiteral("http://"))
{
}

VLUrlResolutor &VLUrlResolutor::sharedUrlResolutor()
{
    static VLUrlResolutor resolutor;
    return resolutor;
}

bool VLUrlResolutor::openUrl(const QString &url)
{
    return openUrl(url, QStringLiteral(""));
}

bool VLUrlResolutor::openUrl(const QString &url, const QString &withUser)
{
    return openUrl(url, withUser, QStringLiteral(""));
}

bool VLUrlResolutor::openUrl(const QString &url, const QString &withUser, const QString &withPassword)
{
    return smartOpenUrl(url, withUser, withPassword) || openWithDefaultProtocol(url, withUser, withPassword);
}

bool VLUrlResolutor::smartOpenUrl(const QString &url, const QString &withUser, const QString &withPassword)
{
    const QString address = VLStringUtils::trimLateralSpace(url);
    if (address.isEmpty())
        return false;
    if (const Scheme *scheme = schemeOf(address, CommonSchemes))
        return (this->*scheme->open)(address, withUser, withPassword);
    if (VLNetValidator::isValidEmail(address))
        return openMail(MailPrefix + address, withUser, withPassword);
    if (const Scheme *scheme = schemeOf(address, RareSchemes))
        return (this->*scheme->open)(address, withUser, withPassword);
    return false;
}

bool VLUrlResolutor::openWithDefaultProtocol(const QString &url, const QString &withUser,
                                             const QString &withPassword)
{
    return smartOpenUrl(m_defaultProtocolType + url, withUser, withPassword);
}

QString VLUrlResolutor::smartUrl(const QString &url, const QString &withUser, const QString &withPassword,
                                 bool) const
{
    const QString address = VLStringUtils::trimLateralSpace(url);
    return address.startsWith(FtpPrefix) ? ftpAddress(address, withUser, withPassword) : address;
}

bool VLUrlResolutor::openHttp(const QString &url, const QString &, const QString &)
{
    return openAddress(url);
}

bool VLUrlResolutor::openHttps(const QString &url, const QString &, const QString &)
{
    return openAddress(url);
}

bool VLUrlResolutor::openMail(const QString &url, const QString &, const QString &)
{
    return openAddress(url);
}

bool VLUrlResolutor::openFeed(const QString &url, const QString &, const QString &)
{
    return openAddress(url);
}

bool VLUrlResolutor::openTelneet(const QString &url, const QString &, const QString &)
{
    return openAddress(url);
}

bool VLUrlResolutor::openFtp(const QString &url, const QString &withUser, const QString &withPassword)
{
    return openAddress(ftpAddress(url, withUser, withPassword));
}

bool VLUrlResolutor::openFile(const QString &url, const QString &, const QString &)
{
    const QString path = url.mid(FilePrefix.size());
    if (!Foundation::identityOfFile(path))
        return false;
    // Required: the file exists, so the address was right, even if no program opens it.
    Foundation::Services::shared().workspace().openFile(path);
    return true;
}
