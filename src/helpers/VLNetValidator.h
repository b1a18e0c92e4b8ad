#pragma once

#include <QString>
#include <QStringView>

// Tells mail addresses and domains from other text. Every operation trims the character " " at both ends and
// then compares the whole text with a pattern. Null matches nothing.
//
// The patterns are narrower than RFC 5321 and RFC 1035 on purpose: what they accept decides which fields open
// a mail, and users know it. Texts come from imported files, so they are evaluated in linear time: the
// patterns given here for domains would backtrack for ages on some texts, and equal ones that cannot are used
// for them.
class VLNetValidator
{
public:
    // Top-level domains have two to six letters.
    static constexpr QStringView EmailPattern = u"[A-Z0-9a-z._%+-]+@[A-Za-z0-9.-]+\\.[A-Za-z]{2,6}";
    static constexpr QStringView DomainPattern = u"^(?:[a-zA-Z0-9]+(?:\\-*[a-zA-Z0-9])*\\.)+[a-zA-Z]{2,6}$";
    // Each of the four groups has two digits at least: a group of one fails.
    static constexpr QStringView NumericDomainPattern =
        u"^(([0-2]*[0-9]+[0-9]+)\\.([0-2]*[0-9]+[0-9]+)\\.([0-2]*[0-9]+[0-9]+)\\.([0-2]*[0-9]+[0-9]+))$";

    VLNetValidator() = delete;

    static bool isValidEmail(const QString &text);
    // Pieces between commas: each is a valid mail address or exactly empty. True for null and the empty
    // string.
    static bool isValidEmailAlsoMultiple(const QString &text);
    static bool isValidDomain(const QString &text);
    static bool isNumericDomain(const QString &text);
};
