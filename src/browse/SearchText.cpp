#include "browse/SearchText.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace SearchText
{

namespace
{

constexpr char16_t CapitalSigma = 0x03A3;
constexpr char TextEnd = char(0xFF);

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

// Whether `c` belongs to the same composed character as the preceding `previous`.
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

// A lone surrogate is returned as it is.
char32_t codePointAt(QStringView text, qsizetype index)
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

void appendUtf8(QStringView text, std::string &bytes)
{
    for (qsizetype at = 0; at < text.size();) {
        const char32_t c = codePointAt(text, at);
        at += unitsOf(c);
        appendUtf8(c, bytes);
    }
}

// The lower-case form of each UTF-16 unit that is a composed character independently of its neighbours, and
// NotPlain for the others.
class PlainLowerCase
{
public:
    static constexpr char16_t NotPlain = 0xFFFF; // a noncharacter, which itself counts as not plain

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

// The search form of one composed character. Composing whole texts with the library would give wrong results
// for some (a syllable after U+114BE).
struct ComposedForm
{
    explicit ComposedForm(const QString &character)
    {
        const QString lowered = lowerCase(character);
        const QString composed = lowered.normalized(QString::NormalizationForm_C);
        appendUtf8(composed, bytes);
        lostUnits = qint32(lowered.size() - composed.size());
        for (qsizetype at = 0; at < composed.size(); at += unitsOf(codePointAt(composed, at))) {
            if (mayContinue(codePointAt(composed, at)))
                shape = Shape::Marked;
        }
    }

    std::string bytes;
    qint32 lostUnits;
    Shape shape = Shape::Plain;
};

// A cache of the forms of short composed characters, because texts repeat the same few.
class ComposedForms
{
public:
    static ComposedForms &cache()
    {
        static ComposedForms cache;
        return cache;
    }
    // The result is valid until the next call.
    const ComposedForm &formOf(QStringView character)
    {
        quint64 units = 0;
        for (const QChar unit : character)
            units = units << 16 | unit.unicode();
        const bool isKept = character.size() <= 4 && !character.front().isNull();
        Slot &slot = isKept ? m_slots[units * 0x9E3779B97F4A7C15 >> 52] : m_other;
        if (!isKept || slot.units != units)
            slot = {units, ComposedForm(character.toString())};
        return slot.form;
    }

private:
    struct Slot
    {
        quint64 units = 0; // no cached character has this value
        ComposedForm form{QString()};
    };

    std::vector<Slot> m_slots = std::vector<Slot>(4096);
    Slot m_other;
};

qsizetype endOfComposedCharacter(QStringView text, qsizetype begin)
{
    char32_t previous = codePointAt(text, begin);
    qsizetype end = begin + unitsOf(previous);
    while (end < text.size() && continues(previous, codePointAt(text, end))) {
        previous = codePointAt(text, end);
        end += unitsOf(previous);
    }
    return end;
}

// Lower case depends on other characters only for the capital sigma, which the text must not contain.
Shape appendByCharacter(QStringView text, std::string &forms, std::vector<LengthChange> &changes)
{
    const PlainLowerCase &lowerCase = PlainLowerCase::table();
    Shape shape = Shape::Plain;
    for (qsizetype at = 0; at < text.size();) {
        const char16_t c = lowerCase[text[at].unicode()];
        const bool isLast = at + 1 == text.size();
        if (c != PlainLowerCase::NotPlain &&
            (isLast || lowerCase[text[at + 1].unicode()] != PlainLowerCase::NotPlain)) {
            appendUtf8(c, forms);
            ++at;
            continue;
        }
        const qsizetype end = endOfComposedCharacter(text, at);
        const ComposedForm &form = ComposedForms::cache().formOf(text.sliced(at, end - at));
        // A trailing jamo may follow jamos without joining them, and would then seem to join their syllable.
        const bool seemsToContinue = at > 0 && mayContinue(codePointAt(text, at));
        if (form.lostUnits != 0 || seemsToContinue)
            changes.push_back({quint32(forms.size()), form.lostUnits});
        forms += form.bytes;
        shape = std::max(shape, form.shape);
        at = end;
    }
    return shape;
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

// `at` must point to the first byte of a complete character.
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

} // namespace

QString lowerCase(const QString &text)
{
    // The library handles the final sigma, and keeps lone surrogates, only if a language is given.
    static const QLocale language(QLocale::English, QLocale::UnitedStates);
    return language.toLower(text);
}

Shape appendSearchForm(const Foundation::TextView &text, std::string &forms,
                       std::vector<LengthChange> &changes)
{
    if (text.ascii) {
        appendAsciiSearchForm(text, forms);
        return Shape::Plain;
    }
    const QStringView units(text.units, text.size);
    if (units.contains(CapitalSigma))
        return appendByCharacter(lowerCase(units.toString()), forms, changes);
    return appendByCharacter(units, forms, changes);
}

Needle::Needle(const QString &text)
{
    std::vector<LengthChange> changes;
    appendSearchForm({nullptr, reinterpret_cast<const char16_t *>(text.utf16()), text.size()}, searchForm,
                     changes);
    for (const LengthChange &change : changes)
        lostUnits += change.units;
}

bool isBoundary(const char *formBegin, const char *formEnd, const char *at)
{
    if (at == formBegin || at == formEnd || *at == TextEnd || at[-1] == TextEnd)
        return true;
    const char *previous = at - 1;
    while (isTrailByte(*previous))
        --previous;
    return !continues(characterAt(previous), characterAt(at));
}

} // namespace SearchText
