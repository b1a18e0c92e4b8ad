#include "window/application/Application.h"

#include "helpers/VLAppSupportUtility.h"
#include "helpers/transformers/HelperTransformers.h"
#include "window/accessibility/AccessibleFactory.h"
#include "window/application/RecentDocumentsMenu.h"
#include "window/binding/InterfaceTransformers.h"
#include "window/sheets/FilePanels.h"

#include <QApplication>

using Foundation::ActionSender;
using Foundation::Document;
using Foundation::DocumentController;
using Foundation::Services;

static void loadResources()
{
    // Explicit, because the linker drops resources of a static library. The macro must be outside any
    // namespace.
    Q_INIT_RESOURCE(vexarel);
}

static QIcon applicationIcon()
{
    QIcon own(QStringLiteral(":/vexarel/icons/vexarel-48.png"));
    own.addFile(QStringLiteral(":/vexarel/icons/vexarel-256.png"));
    return QIcon::fromTheme(QStringLiteral("vexarel"), own);
}

Application::Application()
    : m_documents([] { return std::make_unique<MyDocument>(); })
    , m_autosaver(m_documents)
    , m_delegate(m_documents)
{
    loadResources();
    installAccessibility();
    keepNoPanelHistory();
    MyAppDelegate::initialize();
    registerHelperTransformers();
    registerInterfaceTransformers();
    QApplication::setApplicationName(VLAppSupportUtility::NameInPaths);
    QApplication::setApplicationDisplayName(VLAppSupportUtility::ApplicationName);
    QApplication::setApplicationVersion(
        VLAppSupportUtility::calcReleaseString(VLAppSupportUtility::ApplicationRelease));
    QApplication::setDesktopFileName(VLAppSupportUtility::NameInPaths);
    QApplication::setWindowIcon(applicationIcon());
    // Quitting is decided by the documents, not by the toolkit when the last window is hidden.
    QApplication::setQuitOnLastWindowClosed(false);
    Services::shared().setWorkspace(&m_workspace);
    Services::shared().setModalAlerts(&m_modalAlerts);
    Services::shared().setImageReader(&m_imageReader);
    Services::shared().setTextMeasurer(&m_textMeasurer);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &Application::followApplicationState);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &Application::endSession,
            Qt::DirectConnection);
    qApp->installEventFilter(this);
    qApp->installEventFilter(&m_wheelGuard);
    qApp->installEventFilter(&m_heldUndoKey);
    connect(&m_terminationSignals, &Foundation::TerminationSignals::terminationRequested, this,
            &Application::terminateAtOnce);
    connect(&m_documents, &DocumentController::documentAdded, this, &Application::makeWindow);
    connect(&m_documents, &DocumentController::documentClosed, this, &Application::quitWithoutDocuments);
}

Application::~Application()
{
    // Windows use their documents in their destructors, so they are deleted first.
    for (const auto &window : m_windows)
        delete window.data();
    Services::shared().setWorkspace(nullptr);
    Services::shared().setModalAlerts(nullptr);
    Services::shared().setImageReader(nullptr);
    Services::shared().setTextMeasurer(nullptr);
}

void Application::followApplicationState(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive) {
        m_autosaveWhenLeft = nullptr;
        m_delegate.applicationDidBecomeActive();
        return;
    }
    // Saving comes before the automatic lock. It is delayed, because the application is also inactive for a
    // moment while the user changes between two of its windows.
    m_autosaveWhenLeft = Services::shared().timers().schedule(1, [this] { m_autosaver.autosaveAll(); });
    m_delegate.applicationDidResignActive();
}

void Application::terminateAtOnce()
{
    m_autosaver.autosaveAll();
    QCoreApplication::exit(0);
}

void Application::endSession(QSessionManager &manager)
{
    bool hasAsked = false;
    const bool mayEnd =
        mayEndSession([&manager, &hasAsked] { return hasAsked = manager.allowsInteraction(); });
    if (!mayEnd)
        manager.cancel();
    else if (hasAsked)
        manager.release();
}

bool Application::mayEndSession(const std::function<bool()> &mayAsk)
{
    m_autosaver.autosaveAll();
    const auto hasUnsavedWork = [](const Document *document) {
        return document->isDocumentEdited() && document->hasUnsavedContent() &&
               !document->autosavingFileType().isNull();
    };
    const auto &documents = m_documents.documents();
    const auto unsaved = std::find_if(documents.begin(), documents.end(), hasUnsavedWork);
    m_isSessionEnding = unsaved == documents.end() || !mayAsk();
    if (m_isSessionEnding)
        return true;
    const int answer = Services::shared().modalAlerts().runModal(
        {tr("The document “%1” has changes that are not saved.").arg((*unsaved)->displayName()),
         tr("If the session ends now, they are offered again at the next start."),
         {{tr("End Session")}, {tr("Cancel"), Foundation::AlertButton::Cancel}}});
    m_isSessionEnding = answer == Foundation::Alert::FirstButtonReturn;
    return m_isSessionEnding;
}

bool Application::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != qApp || event->type() != QEvent::Quit || !m_isSessionEnding)
        return QObject::eventFilter(watched, event);
    terminateAtOnce();
    return true;
}

void Application::start(const QStringList &paths)
{
    const int recovered = m_documents.recoverDocuments(Foundation::RecoveryFolder(MyDocument::type()));
    openDocuments(paths);
    if (paths.isEmpty() && recovered == 0)
        m_documents.newDocument();
    // The user was already told about each file that could not be opened.
    quitWithoutDocuments();
}

void Application::startAgain(const QStringList &paths)
{
    openDocuments(paths);
    if (paths.isEmpty() && !m_documents.documents().isEmpty() && m_documents.documents().last()->window())
        m_documents.documents().last()->window()->makeKeyAndOrderFront();
}

DocumentWindowController *Application::windowOf(const Document *document) const
{
    for (const auto &window : m_windows) {
        if (window && document && document->window() == window.data())
            return window;
    }
    return nullptr;
}

void Application::openDocuments(const QStringList &paths)
{
    for (const QString &path : paths)
        m_documents.openDocument(path);
}

void Application::makeWindow(Document *document)
{
    m_windows.removeAll(nullptr);
    auto *shown = static_cast<MyDocument *>(document); // The only kind that this application makes.
    auto *window = new DocumentWindowController(shown, {this});
    m_windows.append(window);
    shown->setWindow(window);
    new RecentDocumentsMenu(window->mainWindow()->findChild<QMenu *>(QStringLiteral("recentMenu")),
                            m_recentDocuments,
                            [this](const QString &path) { m_documents.openDocument(path); });
    noteUseOf(document);
    document->windowControllerDidLoadNib();
}

void Application::noteUseOf(Document *document)
{
    if (!document->fileURL().isNull())
        m_recentDocuments.add(document->fileURL());
    // Every save sends this signal.
    const auto note = [this, document, noted = document->fileURL()]() mutable {
        if (document->fileURL() != std::exchange(noted, document->fileURL()))
            m_recentDocuments.add(noted);
    };
    connect(document, &Document::fileURLChanged, this, note);
}

void Application::quitWithoutDocuments()
{
    // Queued, because quitting has no effect before the event loop runs.
    if (m_documents.documents().isEmpty())
        QMetaObject::invokeMethod(qApp, &QApplication::quit, Qt::QueuedConnection);
}

void Application::newDocument(const ActionSender &)
{
    m_documents.newDocument();
}

void Application::openDocument(const ActionSender &)
{
    if (!m_openPanel) {
        m_openPanel = newOpenPanel(QApplication::activeWindow());
        m_openPanel->setAttribute(Qt::WA_DeleteOnClose);
        m_openPanel->setWindowModality(Qt::ApplicationModal);
        connect(m_openPanel, &QFileDialog::filesSelected, this, &Application::openDocuments);
    }
    m_openPanel->show();
}

void Application::terminate(const ActionSender &)
{
    m_documents.closeAllDocuments([](bool) {});
}
