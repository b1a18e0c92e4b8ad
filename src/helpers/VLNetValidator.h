#pragma once

#include <QString>
#include <QStringView>

// Recognises mail addresses and domains. Every operation removes the character " " at both ends and then
// matches the whole text with a pattern. A null text does not match. Only isValidEmail() has a caller so far;
// the others are prescribed.
//
// The patterns are prescribed and deliberately narrower than RFC 5321 and RFC 1035, because they decide which
// fields open a mail. Texts may come from imported files, so matching takes linear time: equivalent patterns
// without backtracking are used in place of the domain patterns below.
class VLNetValidator
{
public:
    // Top-level domains have two to six letters.
    static constexpr QStringView EmailPattern = u"[A-Z0-9a-z._%+-]+@[A-Za-z0-9.-]+\\.[A-Za-z]{2,6}";
    static constexpr QStringView DomainPattern = u"^(?:[a-zA-Z0-9]+(?:\\-*[a-zA-Z0-9])*\\.)+[a-zA-Z]{2,6}$";
    // Each of the four groups must have at least two digits.
    static constexpr QStringView NumericDomainPattern =
        u"^(([0-2]*[0-9]+[0-9]+)\\.([0-2]*[0-9]+[0-9]+)\\.([0-2]*[0-9]+[0-9]+)\\.([0-2]*[0-9]+[0-9]+))$";

    VLNetValidator() = delete;

    static bool isValidEmail(const QString &text);
    // True if each part between commas is a valid mail address or exactly empty. True for a null and an empty
    // text.
    static bool isValidEmailAlsoMultiple(const QString &text);
    static bool isValidDomain(const QString &text);
    static bool isNumericDomain(const QString &text);
};
