#include "window/controls/SafeText.h"

QString withoutReorderingCharacters(QString text)
{
    const auto isDirectional = [](char16_t unit) {
        return (unit >= 0x202a && unit <= 0x202e) || (unit >= 0x2066 && unit <= 0x2069) || unit == 0x200e ||
               unit == 0x200f || unit == 0x061c;
    };
    for (QChar &character : text) {
        const bool isControl = character.category() == QChar::Other_Control && character != u'\n';
        if (isControl || isDirectional(character.unicode()))
            character = QChar::ReplacementCharacter;
    }
    return text;
}
