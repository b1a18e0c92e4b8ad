#include "browse/SearchText.h"

#include <QLocale>

#include <array>
#include <vector>

namespace SearchText
{

namespace
{

constexpr char16_t CapitalSigma = 0x03A3;

bool isJoiningVowel(char32_t c)
{
    return c >= 0x1161 && c <= 0x1175;
}

bool isJoiningTail(char32_t c)
{
    return c >= 0x11A8 && c <= 0x11C2;
}

bool isHangulSyllable(char32_t c)
{
    return c >= 0xAC00 && c <= 0xD7A3;
}

// Whether `c` belongs to the composed character of what stands in front of it.
bool continues(char32_t previous, char32_t c)
{
    if (isJoiningVowel(c))
        return previous >= 0x1100 && previous <= 0x1112;
    if (isJoiningTail(c))
        return isJoiningVowel(previous) || isHangulSyllable(previous);
    return QChar::isMark(c);
}

bool mayContinue(char32_t c)
{
    return QChar::isMark(c) || isJoiningVowel(c) || isJoiningTail(c);
}

// Lone surrogates come as they stand.
char32_t codePointAt(const QString &text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[index + 1]);
    return unit.unicode();
}

qsizetype unitsOf(char32_t c)
{
    return c > 0xFFFF ? 2 : 1;
}

struct ComposedCharacter
{
    qsizetype location;
    QString canonical;
};

std::vector<ComposedCharacter> composedCharacters(const QString &text)
{
    std::vector<ComposedCharacter> characters;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype begin = at;
        char32_t previous = codePointAt(text, at);
        at += unitsOf(previous);
        while (at < text.size() && continues(previous, codePointAt(text, at))) {
            previous = codePointAt(text, at);
            at += unitsOf(previous);
        }
        characters.push_back({begin, text.mid(begin, at - begin).normalized(QString::NormalizationForm_C)});
    }
    return characters;
}

void appendUtf8(char32_t c, std::string &bytes)
{
    if (c < 0x80) {
        bytes.push_back(char(c));
        return;
    }
    if (c < 0x800) {
        bytes.push_back(char(0xC0 | (c >> 6)));
    } else {
        if (c < 0x10000) {
            bytes.push_back(char(0xE0 | (c >> 12)));
        } else {
            bytes.push_back(char(0xF0 | (c >> 18)));
            bytes.push_back(char(0x80 | ((c >> 12) & 0x3F)));
        }
        bytes.push_back(char(0x80 | ((c >> 6) & 0x3F)));
    }
    bytes.push_back(char(0x80 | (c & 0x3F)));
}

Shape appendAnySearchForm(const QString &lowered, std::string &bytes)
{
    const QString composed = lowered.normalized(QString::NormalizationForm_C);
    Shape shape = composed == lowered ? Shape::Plain : Shape::Unstable;
    for (qsizetype at = 0; at < composed.size();) {
        const char32_t c = codePointAt(composed, at);
        at += unitsOf(c);
        if (shape == Shape::Plain && mayContinue(c))
            shape = Shape::Marked;
        appendUtf8(c, bytes);
    }
    return shape;
}

// The lower-case form of each character that keeps a text plain whatever stands beside it, and a sign for
// the others.
class PlainLowerCase
{
public:
    static constexpr char16_t NotPlain = 0xFFFF; // a noncharacter, which itself takes the long way

    static const PlainLowerCase &table()
    {
        static const PlainLowerCase table;
        return table;
    }
    char16_t operator[](char16_t unit) const { return m_units[unit]; }

private:
    PlainLowerCase()
    {
        for (char32_t c = 0; c < m_units.size(); ++c)
            m_units[c] = isHangulSyllable(c) ? char16_t(c) : plainLowerCase(c);
    }

    static char16_t plainLowerCase(char32_t c)
    {
        if (QChar::isSurrogate(c) || mayContinue(c) || c == CapitalSigma)
            return NotPlain;
        const bool isSimple = QChar::decompositionTag(c) == QChar::NoDecomposition && !QChar::isUpper(c) &&
                              QChar::toLower(c) == c;
        if (isSimple)
            return char16_t(c);
        const QString lowered = lowerCase(QString(QChar(char16_t(c))));
        const bool isPlain = lowered.size() == 1 && !mayContinue(lowered[0].unicode()) &&
                             lowered.normalized(QString::NormalizationForm_C) == lowered;
        return isPlain ? lowered[0].unicode() : NotPlain;
    }

    std::array<char16_t, 0x10000> m_units;
};

bool appendPlainSearchForm(const Foundation::TextView &text, std::string &bytes)
{
    const PlainLowerCase &lowerCase = PlainLowerCase::table();
    const std::size_t begin = bytes.size();
    for (qsizetype i = 0; i < text.size; ++i) {
        const char16_t c = lowerCase[text.units[i]];
        if (c == PlainLowerCase::NotPlain) {
            bytes.resize(begin);
            return false;
        }
        appendUtf8(c, bytes);
    }
    return true;
}

void appendAsciiSearchForm(const Foundation::TextView &text, std::string &bytes)
{
    const std::size_t begin = bytes.size();
    bytes.append(text.ascii, std::size_t(text.size));
    for (std::size_t i = begin; i < bytes.size(); ++i) {
        const char c = bytes[i];
        bytes[i] = char(c + (c >= 'A' && c <= 'Z' ? 'a' - 'A' : 0));
    }
}

bool isTrailByte(char byte)
{
    return (quint8(byte) & 0xC0) == 0x80;
}

// `at` points to the first byte of a character, which the form holds whole.
char32_t characterAt(const char *at)
{
    const auto lead = quint8(*at);
    if (lead < 0x80)
        return lead;
    const int trailBytes = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    char32_t c = lead & (0x3F >> trailBytes);
    for (int i = 1; i <= trailBytes; ++i)
        c = (c << 6) | (quint8(at[i]) & 0x3F);
    return c;
}

constexpr char TextEnd = char(0xFF);

// Whether a composed character begins at this place of the form.
bool isBoundary(const char *formBegin, const char *formEnd, const char *at)
{
    if (at == formBegin || at == formEnd || *at == TextEnd || at[-1] == TextEnd)
        return true;
    const char *previous = at - 1;
    while (isTrailByte(*previous))
        --previous;
    return !continues(characterAt(previous), characterAt(at));
}

} // namespace

QString lowerCase(const QString &text)
{
    // Only with a language does the library know the sigma at the end of a word, and leaves lone surrogates
    // as they are.
    static const QLocale language(QLocale::English, QLocale::UnitedStates);
    return language.toLower(text);
}

Range rangeOfString(const QString &text, const QString &needle)
{
    const auto hay = composedCharacters(text);
    const auto sought = composedCharacters(needle);
    for (std::size_t i = 0; i + sought.size() <= hay.size(); ++i) {
        std::size_t equal = 0;
        while (equal < sought.size() && hay[i + equal].canonical == sought[equal].canonical)
            ++equal;
        if (equal < sought.size())
            continue;
        const qsizetype end = i + equal < hay.size() ? hay[i + equal].location : text.size();
        return {hay[i].location, end - hay[i].location};
    }
    return {};
}

Shape appendSearchForm(const Foundation::TextView &text, std::string &bytes)
{
    if (text.ascii) {
        appendAsciiSearchForm(text, bytes);
        return Shape::Plain;
    }
    if (appendPlainSearchForm(text, bytes))
        return Shape::Plain;
    return appendAnySearchForm(lowerCase(QString(reinterpret_cast<const QChar *>(text.units), text.size)),
                               bytes);
}

Needle::Needle(const QString &text)
    : lowerCase(SearchText::lowerCase(text))
{
    const Shape shape = appendAnySearchForm(lowerCase, searchForm);
    keepsLength = shape != Shape::Unstable ||
                  lowerCase.normalized(QString::NormalizationForm_C).size() == lowerCase.size();
}

bool isWholeInForm(const char *formBegin, const char *formEnd, const char *occurrence, std::size_t length)
{
    return isBoundary(formBegin, formEnd, occurrence) && isBoundary(formBegin, formEnd, occurrence + length);
}

} // namespace SearchText
