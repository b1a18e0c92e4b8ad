#include "window/application/HiddenContact.h"

#include "window/accessibility/Announcer.h"
#include "window/card/FormFocus.h"

#include <QAbstractButton>

#include <algorithm>

using Foundation::ActionSender;
using Foundation::ArrayController;

HiddenContact::HiddenContact(MyDocument *document, FormFocus &focus, Parts parts)
    : m_document(document)
    , m_focus(focus)
    , m_parts(parts)
{
    connect(&document->recordCommands(), &RecordCommands::recordAdded, this, &HiddenContact::follow);
    connect(document->myArrayController(), &ArrayController::arrangedObjectsChanged, this,
            &HiddenContact::refresh);
    refresh();
}

void HiddenContact::follow(const Record &added)
{
    if (m_document->myArrayController()->arrangedIndexOf(added) < 0) {
        m_record = added;
        refresh();
        tell();
    } else if (m_document->undoManager().isRedoing()) {
        m_focus.focusList();
    } else {
        m_focus.beginNewContact();
    }
}

QString HiddenContact::sentence()
{
    return tr("The new contact is hidden by this filter.");
}

void HiddenContact::refresh()
{
    FilteringArrayController *records = m_document->myArrayController();
    const auto &content = records->contentObjects();
    // Unlocking replaces all records, and another filter may show this one.
    if (m_record && (records->arrangedIndexOf(m_record) >= 0 ||
                     std::find(content.begin(), content.end(), m_record) == content.end()))
        m_record = nullptr;
    m_parts.notice->setVisible(bool(m_record));
    m_parts.showAllButton->setAccessibleDescription(m_record ? sentence() : QString());
}

void HiddenContact::tell()
{
    m_parts.showAllButton->setFocus();
    // Announced, because setting the focus has no effect if the button has it already.
    m_parts.announcer->say(sentence());
}

void HiddenContact::addRow(const ActionSender &sender)
{
    if (m_record)
        tell();
    else
        m_focus.stayDuring([&] { m_document->recordCommands().addRow(sender); });
}

void HiddenContact::showAllAndResetFilter(const ActionSender &sender)
{
    const Record hidden = m_record;
    m_document->categoryCommands().showAllAndResetFilter(sender);
    FilteringArrayController *records = m_document->myArrayController();
    const qsizetype row = hidden ? records->arrangedIndexOf(hidden) : -1;
    if (row < 0)
        return;
    records->setSelectionIndex(row);
    if (MyDocumentWindow *window = m_document->myWindow())
        window->scrollRowToVisible(row);
    m_focus.beginNewContact();
}
