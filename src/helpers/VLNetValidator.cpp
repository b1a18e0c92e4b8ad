#include "helpers/VLNetValidator.h"

#include "helpers/VLStringUtils.h"

#include <QRegularExpression>

#include <algorithm>

namespace
{

// The published patterns with possessive quantifiers, which never backtrack. They accept the same texts,
// because the end of each group is unambiguous: a mailbox name ends at "@", a label at its dot, a run of
// hyphens at a letter or digit, and a number at the first character that is no digit.
const QString LinearEmailPattern = QStringLiteral("[A-Z0-9a-z._%+-]++@[A-Za-z0-9.-]+\\.[A-Za-z]{2,6}");
const QString LinearDomainPattern =
    QStringLiteral("(?:[a-zA-Z0-9]++(?:-++[a-zA-Z0-9]++)*+\\.)++[a-zA-Z]{2,6}");
const QString LinearNumericDomainPattern = QStringLiteral("(?:[0-9]{2,}+\\.){3}[0-9]{2,}+");

bool wholeTextMatches(const QRegularExpression &expression, const QString &text)
{
    return !text.isNull() && expression.match(VLStringUtils::trimLateralSpace(text)).hasMatch();
}

} // namespace

bool VLNetValidator::isValidEmail(const QString &text)
{
    static const QRegularExpression expression(QRegularExpression::anchoredPattern(LinearEmailPattern));
    return wholeTextMatches(expression, text);
}

bool VLNetValidator::isValidEmailAlsoMultiple(const QString &text)
{
    const QStringList pieces = text.split(u',');
    return std::all_of(pieces.cbegin(), pieces.cend(),
                       [](const QString &piece) { return piece.isEmpty() || isValidEmail(piece); });
}

bool VLNetValidator::isValidDomain(const QString &text)
{
    static const QRegularExpression expression(QRegularExpression::anchoredPattern(LinearDomainPattern));
    return wholeTextMatches(expression, text);
}

bool VLNetValidator::isNumericDomain(const QString &text)
{
    static const QRegularExpression expression(
        QRegularExpression::anchoredPattern(LinearNumericDomainPattern));
    return wholeTextMatches(expression, text);
}
