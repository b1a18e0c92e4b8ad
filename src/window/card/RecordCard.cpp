#include "window/card/RecordCard.h"

#include "browse/RecordName.h"
#include "core/RecordModel.h"
#include "values/DisplayText.h"

using Foundation::ArrayController;
using Foundation::Dictionary;

namespace
{

// The person of a company, or the company of a person, which the name does not contain.
QString subtitleOfRecord(const Dictionary &record)
{
    const QString name = displayedNameOfRecord(record);
    for (const QString &other :
         {personNameOfRecord(record), Foundation::displayText(record.value(RecordKey::company))}) {
        if (!other.isEmpty() && other != name)
            return other;
    }
    return {};
}

} // namespace

RecordCard::RecordCard(ArrayController *records, Parts parts, const ShowWholeText &showWholeText,
                       QObject *parent)
    : QObject(parent)
    , m_records(records)
    , m_parts(parts)
{
    QPalette quiet = parts.subtitle->palette();
    quiet.setColor(QPalette::Text, quietTextColor(quiet));
    parts.subtitle->setPalette(quiet);
    connect(records, &ArrayController::selectionChanged, this, &RecordCard::refresh);
    connect(records, &ArrayController::objectsChanged, this, [this](const std::vector<std::size_t> &indexes) {
        if (std::binary_search(indexes.begin(), indexes.end(), std::size_t(m_records->selectionIndex())))
            refresh();
    });
    connect(parts.name, &FieldText::wholeTextWanted, this,
            [this, showWholeText] { showWholeText(m_parts.name, name(), nullptr); });
    connect(parts.subtitle, &FieldText::wholeTextWanted, this,
            [this, showWholeText] { showWholeText(m_parts.subtitle, subtitle(), nullptr); });
    refresh();
}

const Dictionary &RecordCard::firstRecord() const
{
    return *m_records->arrangedObjects()[m_records->selectionIndexes().front()];
}

QString RecordCard::name() const
{
    return displayedNameOfRecord(firstRecord());
}

QString RecordCard::subtitle() const
{
    return subtitleOfRecord(firstRecord());
}

void RecordCard::refresh()
{
    const auto &selected = m_records->selectionIndexes();
    if (selected.empty()) {
        m_parts.name->showText({});
        m_parts.subtitle->showText({});
        return;
    }
    const bool isOne = selected.size() == 1;
    m_parts.name->showText(isOne ? name() : tr("%1 contacts selected").arg(selected.size()));
    m_parts.subtitle->showText(isOne ? subtitle() : QString());
    m_parts.subtitle->setVisible(!m_parts.subtitle->toPlainText().isEmpty());
}
