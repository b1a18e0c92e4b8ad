#pragma once

#include "documents/Autosaver.h"
#include "lifecycle/VLRevertDocController.h"
#include "platform/TerminationSignals.h"
#include "shell/MyAppDelegate.h"
#include "window/application/DocumentWindowController.h"
#include "window/controls/HeldUndoKey.h"
#include "window/controls/WheelGuard.h"
#include "window/desktop/DesktopImageReader.h"
#include "window/desktop/DesktopText.h"
#include "window/desktop/DesktopWorkspace.h"
#include "window/desktop/RecentDocuments.h"
#include "window/sheets/AlertDialog.h"

#include <QFileDialog>
#include <QSessionManager>

// The application: it installs the services of the desktop, makes a window for each document, and handles the
// commands that belong to no document, as the last responder of every window. Quits when the last document is
// closed. There must be exactly one, and a QApplication before it.
class Application : public QObject, public MenuItemValidator
{
    Q_OBJECT

public:
    Application();
    ~Application() override;

    // Opens the files, or a new document if none is named.
    void start(const QStringList &paths);
    // The user started the application again: opens the files, or raises a window if there are none.
    void startAgain(const QStringList &paths);

    Foundation::DocumentController &documentController() { return m_documents; }
    // Returns null for a document without a window.
    DocumentWindowController *windowOf(const Foundation::Document *document) const;

    bool validateMenuItem(Foundation::MenuItem &) override { return true; }
    Q_INVOKABLE void newDocument(const Foundation::ActionSender &sender);
    Q_INVOKABLE void openDocument(const Foundation::ActionSender &sender);
    // Asks about the changes of each document. Quits if the user let all of them be closed.
    Q_INVOKABLE void terminate(const Foundation::ActionSender &sender);

    // Whether the session may end. First saves automatically what can be saved. If a document still has
    // unsaved changes, asks the user, provided that `mayAsk` returns true. A locked document has nothing to
    // save.
    bool mayEndSession(const std::function<bool()> &mayAsk);

    // Handles the Quit event at the end of a session: quits without asking again.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openDocuments(const QStringList &paths);
    void makeWindow(Foundation::Document *document);
    // Adds the file of the document to the list of recent documents.
    void noteUseOf(Foundation::Document *document);
    void quitWithoutDocuments();
    void followApplicationState(Qt::ApplicationState state);
    // Saves what can be saved and quits. Content that is in no file of the user's is offered again at the
    // next start.
    void terminateAtOnce();
    void endSession(QSessionManager &manager);

    DesktopWorkspace m_workspace;
    ModalAlerts m_modalAlerts;
    DesktopImageReader m_imageReader;
    DesktopTextMeasurer m_textMeasurer;
    VLRevertDocController m_documents;
    Foundation::Autosaver m_autosaver;
    MyAppDelegate m_delegate;
    RecentDocuments m_recentDocuments;
    QList<QPointer<DocumentWindowController>> m_windows;
    QPointer<QFileDialog> m_openPanel;
    Foundation::TerminationSignals m_terminationSignals;
    WheelGuard m_wheelGuard;
    HeldUndoKey m_heldUndoKey;
    Foundation::Timers::Timer m_autosaveWhenLeft;
    bool m_isSessionEnding = false;
};
