#include "lists/SelectionValues.h"

#include <QList>

#include <algorithm>

namespace Foundation
{

SelectionValues::Path::Path(QStringView keyPath)
{
    for (const QStringView part : keyPath.split(u'.'))
        m_keys.emplace_back(part);
}

const Value &SelectionValues::Path::valueIn(const Dictionary &object)
{
    static const Value absent;
    const auto &entries = object.entries();
    const bool isAtLastPlace = m_lastPlace < entries.size() && entries[m_lastPlace].key == m_keys.front();
    if (!isAtLastPlace) {
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [this](const auto &entry) { return entry.key == m_keys.front(); });
        if (found == entries.end())
            return absent;
        m_lastPlace = std::size_t(found - entries.begin());
    }
    const Value *value = &entries[m_lastPlace].value;
    for (auto key = m_keys.begin() + 1; key != m_keys.end(); ++key) {
        // The dictionary is kept alive by the value that it was read from.
        const Ref<Dictionary> next = value->dictionary();
        if (!next)
            return absent;
        value = &next->value(*key);
    }
    return *value;
}

void SelectionValues::takeCommonValue(const Key &key, const Value &value, quint64 formerChangeStamp)
{
    if (m_changeStamp != formerChangeStamp)
        return; // The stored answers are out of date already.
    m_changeStamp = Dictionary::lastChangeStamp();
    const QString nested = key.name() + u'.';
    std::erase_if(m_known, [&](const Known &known) { return known.keyPath.startsWith(nested); });
    for (Known &known : m_known) {
        if (known.keyPath == key.name())
            known.outcome = {value};
    }
}

} // namespace Foundation
