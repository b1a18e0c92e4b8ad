#include "window/Application.h"

#include "helpers/HelperTransformers.h"
#include "helpers/VLAppSupportUtility.h"
#include "window/FilePanels.h"
#include "window/InterfaceTransformers.h"

#include <QApplication>

using Foundation::ActionSender;
using Foundation::Document;
using Foundation::DocumentController;
using Foundation::Services;

static void loadResources()
{
    // A static library would lose them. The macro must stand outside any namespace.
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
    , m_delegate(m_documents)
{
    loadResources();
    keepNoPanelHistory();
    MyAppDelegate::initialize();
    registerHelperTransformers();
    registerInterfaceTransformers();
    QApplication::setApplicationName(QStringLiteral("vexarel"));
    QApplication::setApplicationDisplayName(VLAppSupportUtility::ApplicationName);
    QApplication::setApplicationVersion(
        VLAppSupportUtility::calcReleaseString(VLAppSupportUtility::ApplicationRelease));
    QApplication::setDesktopFileName(QStringLiteral("vexarel"));
    QApplication::setWindowIcon(applicationIcon());
    // Windows only hide while their documents decide whether to go.
    QApplication::setQuitOnLastWindowClosed(false);
    Services::shared().setWorkspace(&m_workspace);
    Services::shared().setModalAlerts(&m_modalAlerts);
    Services::shared().setImageReader(&m_imageReader);
    Services::shared().setTextMeasurer(&m_textMeasurer);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            m_delegate.applicationDidBecomeActive();
        else
            m_delegate.applicationDidResignActive();
    });
    connect(&m_documents, &DocumentController::documentAdded, this, &Application::makeWindow);
    connect(&m_documents, &DocumentController::documentClosed, this, &Application::quitWithoutDocuments);
}

Application::~Application()
{
    // Windows look at their documents to the end.
    for (const auto &window : m_windows)
        delete window.data();
    Services::shared().setWorkspace(nullptr);
    Services::shared().setModalAlerts(nullptr);
    Services::shared().setImageReader(nullptr);
    Services::shared().setTextMeasurer(nullptr);
}

void Application::start(const QStringList &paths)
{
    if (paths.isEmpty())
        m_documents.newDocument();
    else
        openDocuments(paths);
    // The user has been told of each that could not be opened.
    quitWithoutDocuments();
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
    auto *window = new DocumentWindowController(static_cast<MyDocument *>(document), {this});
    m_windows.append(window);
    document->setWindow(window);
    document->windowControllerDidLoadNib();
}

void Application::quitWithoutDocuments()
{
    // Queued: before the event loop runs there is nothing to quit.
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
