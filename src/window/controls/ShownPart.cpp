#include "window/controls/ShownPart.h"

#include <QTextBoundaryFinder>

namespace
{

constexpr qsizetype LongestText = 10'000; // UTF-16 units
constexpr qsizetype MostLines = 1'000;
constexpr qsizetype LongestWord =
    2'000; // A long word is measured again for each line into which it is broken.
constexpr qsizetype LongestLine = 1'000;

qsizetype boundaryBefore(const QString &text, qsizetype limit)
{
    if (text.size() <= limit)
        return text.size();
    constexpr qsizetype LongestCharacter = 100; // A base character with more accents is cut.
    const qsizetype start = limit - LongestCharacter;
    const QString around = text.sliced(start, std::min(2 * LongestCharacter, text.size() - start));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around);
    finder.setPosition(LongestCharacter);
    const qsizetype boundary =
        finder.isAtBoundary() ? LongestCharacter : std::max<qsizetype>(finder.toPreviousBoundary(), 0);
    if (boundary > 1) // The first characters may belong to the text before.
        return start + boundary;
    return text.at(limit).isLowSurrogate() ? limit - 1 : limit;
}

} // namespace

QString shownPart(const QString &text)
{
    const qsizetype limit = boundaryBefore(text, LongestText);
    qsizetype lines = 0;
    qsizetype word = 0;
    for (qsizetype i = 0; i < limit; ++i) {
        word = text.at(i).isSpace() || text.at(i).isPunct() ? 0 : word + 1;
        if (word > LongestWord)
            return text.first(boundaryBefore(text, i));
        if (text.at(i) == u'\n' && ++lines == MostLines)
            return text.first(i);
    }
    return text.first(limit);
}

QString shownLine(const QString &text)
{
    const qsizetype end = boundaryBefore(text, LongestLine);
    return end == text.size() ? text : text.first(end) + u'…';
}
