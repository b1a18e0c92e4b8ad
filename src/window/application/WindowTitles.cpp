#include "window/application/WindowTitles.h"

#include "window/controls/SafeText.h"

using Foundation::Document;

WindowTitles::WindowTitles(MyDocument *document, QMainWindow *window, const TextCommands *textCommands)
    : m_document(document)
    , m_window(window)
    , m_textCommands(textCommands)
{
    connect(document, &Document::fileURLChanged, this, &WindowTitles::updateTitle);
    connect(document, &Document::documentEditedChanged, this, &WindowTitles::updateTitle);
    connect(document, &VLCryptoDoc::isEncryptedChanged, this, &WindowTitles::updateTitle);
    updateTitle();
}

void WindowTitles::updateTitle()
{
    QString name = withoutReorderingCharacters(m_document->displayName());
    const QString suffix = u'.' + MyDocument::type().fileNameExtension;
    if (name.endsWith(suffix, Qt::CaseInsensitive) && name.size() > suffix.size())
        name.chop(suffix.size());
    // "[*]" is the position of the mark of an edited document. A doubled "[*]" is shown as text.
    name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    const QString title = name + QStringLiteral("[*]");
    m_window->setWindowTitle(m_document->isEncrypted() ? tr("%1 — locked").arg(title) : title);
    m_window->setWindowFilePath(m_document->fileURL());
    m_window->setWindowModified(m_document->isDocumentEdited());
}

void WindowTitles::follow(ActionDispatcher *dispatcher, QAction *undoItem, QAction *redoItem)
{
    connect(dispatcher, &ActionDispatcher::validated, this, [this, undoItem, redoItem] {
        const auto title = [this](const QString &action, const QString &verb, const QString &actionName) {
            const QString name = m_textCommands->takes(action) ? tr("Typing") : actionName;
            return name.isEmpty() ? verb : verb + u' ' + titleOfText(name);
        };
        const Foundation::UndoManager &manager = m_document->undoManager();
        undoItem->setText(title(QStringLiteral("undo"), tr("&Undo"), manager.undoActionName()));
        redoItem->setText(title(QStringLiteral("redo"), tr("&Redo"), manager.redoActionName()));
    });
}
