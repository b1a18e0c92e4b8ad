#include "window/card/FormFocus.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QStyleHints>

using Foundation::ActionSender;
using Foundation::ArrayController;

FormFocus::FormFocus(MyDocument *document, Parts parts)
    : m_document(document)
    , m_parts(parts)
    , m_selectionStamp(document->myArrayController()->selectionStamp())
{
    m_settling.setSingleShot(true);
    m_settling.setInterval(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    // Before the form is hidden, which would move the focus to an arbitrary widget.
    for (const auto signal : {&ArrayController::arrangedObjectsChanged, &ArrayController::selectionChanged})
        connect(document->myArrayController(), signal, this, &FormFocus::followSelection);
    connect(document, &MyDocument::selectedViewChanged, this, &FormFocus::followView);
    connect(document, &VLCryptoDoc::isEncryptedChanged, this, &FormFocus::settleAfterUnlocking);
    connect(qApp, &QGuiApplication::focusObjectChanged, this,
            [this] { m_document->myArrayController()->sharedFieldEdits().endVisit(); });
}

void FormFocus::followSelection()
{
    const quint64 stamp = m_document->myArrayController()->selectionStamp();
    if (std::exchange(m_selectionStamp, stamp) == stamp || m_isStaying)
        return;
    // The focus widget of the window, since the window may be inactive under a sheet.
    const QWidget *focused = m_parts.form->window()->focusWidget();
    if (focused && m_parts.form->isAncestorOf(focused))
        focusList();
}

void FormFocus::followView()
{
    // The field that had the focus is hidden, and the arrow keys are useful in the list.
    if (m_document->selectedView() == MyDocument::ViewMode && m_document->isDecrypted())
        focusList();
}

void FormFocus::settleAfterUnlocking()
{
    if (m_document->isEncrypted())
        return;
    m_settling.start();
    // Starts again when the content is on the screen, which may take some time.
    QMetaObject::invokeMethod(&m_settling, qOverload<>(&QTimer::start), Qt::QueuedConnection);
}

void FormFocus::focusList()
{
    m_parts.list->setFocus();
}

void FormFocus::stayDuring(const std::function<void()> &add)
{
    m_isStaying = true;
    add();
    m_isStaying = false;
}

void FormFocus::beginEditing()
{
    if (m_settling.isActive())
        return;
    m_document->switchToEditMode();
    m_parts.firstName->setFocus();
    m_parts.firstName->end(false);
}

void FormFocus::beginNewContact()
{
    m_document->switchToEditMode();
    m_parts.firstName->setFocus();
    m_parts.firstName->selectAll();
}

void FormFocus::switchViewEditMode(const ActionSender &sender)
{
    if (m_document->selectedView() == MyDocument::EditMode) {
        m_document->switchViewEditMode(sender);
        return;
    }
    m_settling.stop();
    beginEditing();
}
