#include "window/application/DocumentWindowController.h"

#include "ui_MyDocument.h"
#include "window/accessibility/DocumentAnnouncer.h"
#include "window/card/DetailPlaceholder.h"
#include "window/card/RecordCard.h"
#include "window/controls/InterfaceStyle.h"
#include "window/desktop/DesktopText.h"
#include "window/list/CategoryTable.h"
#include "window/list/MyTableDelegate.h"
#include "window/list/RecordTableModel.h"
#include "window/sheets/AlertDialog.h"
#include "window/sheets/SheetDialog.h"

#include <QApplication>
#include <QMenu>

using Foundation::ActionSender;
using Foundation::Alert;
using Foundation::AlertAnswer;
using Foundation::ArrayController;
using Foundation::Rect;
using Foundation::Size;

namespace
{

constexpr QSize UsualSize(980, 640);

} // namespace

DocumentWindowController::DocumentWindowController(MyDocument *document, QList<QObject *> lastResponders)
    : m_document(document)
    , m_lastResponders(std::move(lastResponders))
    , m_frame(&m_window, UsualSize)
    , m_ui(std::make_unique<Ui::MyDocument>())
    , m_dispatcher(document, [this](const QString &action) { return responders(action); })
    , m_binder(
          document, m_dispatcher,
          [this](const ArrayController *rows, int tag) { controlTextDidChange(rows, tag); },
          wholeTextSheets())
    , m_sheets(&m_window)
    , m_savePanel(m_sheets)
{
    m_ui->setupUi(&m_window);
    m_faces = std::make_unique<WindowFaces>(
        m_document, m_frame,
        WindowFaces::Parts{&m_window, m_ui->openFace, m_ui->facesLayout, m_ui->modernToolbar,
                           m_ui->mySplitView, m_ui->passwordToDecryptField, m_ui->myTableView});
    m_textCommands = std::make_unique<TextCommands>(&m_window);
    m_titles = std::make_unique<WindowTitles>(m_document, &m_window, m_textCommands.get());
    m_cardPrinter = std::make_unique<CardPrinter>(m_sheets, *m_document);
    setUpControls();
    followDocument();
    followItems();
    m_sheets.setLocked(m_document->isEncrypted());
    m_faces->show();
    lockCategoryMenu();
}

DocumentWindowController::~DocumentWindowController() = default;

void DocumentWindowController::setUpControls()
{
    styleInterface(&m_window);
    // Only the document and the menu item show and hide the toolbar, because it must stay hidden while the
    // document is locked.
    m_window.setContextMenuPolicy(Qt::NoContextMenu);
    m_ui->modernToolbar->setVisible(true);
    // Card and form show the same contact at the same scroll position.
    m_ui->viewScrollArea->follow(m_ui->editScrollArea);
    m_ui->editScrollArea->follow(m_ui->viewScrollArea);
    m_formFocus = std::make_unique<FormFocus>(
        m_document, FormFocus::Parts{m_ui->editScrollArea, m_ui->firstName, m_ui->myTableView});
    auto *announcer = new Announcer(&m_window);
    m_hiddenContact = std::make_unique<HiddenContact>(
        m_document, *m_formFocus,
        HiddenContact::Parts{m_ui->hiddenContactNotice, m_ui->showAllButton, announcer});
    setUpTable();
    m_categoryFilter = std::make_unique<CategoryFilter>(*m_document, m_dispatcher, m_ui->myActionPopup);
    setUpToolbar();
    new RecordCard(m_document->myArrayController(), {m_ui->recordName, m_ui->recordSubtitle},
                   wholeTextSheets(), &m_window);
    new DetailPlaceholder(m_document,
                          {m_ui->detailPlaceholder, m_ui->placeholderTitle, m_ui->placeholderHint,
                           m_ui->detailView, m_ui->myTableView},
                          &m_window);
    new DocumentAnnouncer(m_document, announcer);
    m_binder.bind(&m_window);
}

ShowWholeText DocumentWindowController::wholeTextSheets()
{
    return [this](QWidget *field, const QString &text, const WriteText &write) {
        WholeTextSheet::show(m_sheets, field, text, write);
    };
}

void DocumentWindowController::setUpTable()
{
    FilteringArrayController *records = m_document->myArrayController();
    RecordTable *table = m_ui->myTableView;
    table->setRecords(records);
    auto *delegate = new MyTableDelegate(records, m_ui->categoryView, m_ui->categoryView2, table);
    table->setItemDelegateForColumn(RecordTableModel::CategoryColumn, delegate);
    for (CategoryView *view : {m_ui->categoryView, m_ui->categoryView2})
        view->setMyArrayController(records);
    const auto refreshLabels = [delegate] { delegate->tableViewSelectionDidChange(); };
    connect(records, &ArrayController::selectionChanged, delegate, refreshLabels);
    connect(m_document->myCategoryArrayController(), &ArrayController::objectsChanged, delegate,
            refreshLabels);
    connect(table, &RecordTable::editRequested, m_formFocus.get(), &FormFocus::beginEditing);
    connect(table, &RecordTable::contextMenuRequested, this,
            [this](const QPoint &place) { m_ui->myActionMenu->popup(place); });
}

void DocumentWindowController::setUpToolbar()
{
    VLBtnImgPopUp *more = m_ui->myActionButton;
    connect(more, &VLBtnImgPopUp::clicked, this,
            [this, more] { m_ui->myActionMenu->popup(more->mapToGlobal(more->rect().bottomLeft())); });
    connect(m_ui->searchField, &SearchField::left, m_ui->myTableView,
            [this] { m_ui->myTableView->setFocus(); });
    // Interface files put widgets before items in a toolbar.
    QToolBar *toolbar = m_ui->modernToolbar;
    QAction *filters = toolbar->actions().first();
    toolbar->removeAction(filters);
    toolbar->insertAction(m_ui->toolbarLockItem, filters);
}

void DocumentWindowController::followDocument()
{
    connect(&m_window, &DocumentMainWindow::becameKey, m_document, &MyDocument::windowDidBecomeKey);
    connect(&m_window, &DocumentMainWindow::closeRequested, m_document,
            [document = m_document] { document->performClose({}); });
    connect(m_document, &VLCryptoDoc::isEncryptedChanged, this, [this] {
        m_sheets.setLocked(m_document->isEncrypted());
        m_faces->change();
        lockCategoryMenu();
    });
}

void DocumentWindowController::followItems()
{
    for (QMenu *menu : m_window.findChildren<QMenu *>())
        connect(menu, &QMenu::aboutToShow, &m_dispatcher, &ActionDispatcher::validate);
    const auto validateLater = [this] { m_dispatcher.validateLater(); };
    connect(m_textCommands.get(), &TextCommands::shortcutIsComing, &m_dispatcher,
            &ActionDispatcher::validate);
    connect(qApp, &QApplication::focusChanged, &m_dispatcher, validateLater);
    connect(m_document, &VLCryptoDoc::isEncryptedChanged, &m_dispatcher, validateLater);
    connect(m_document, &MyDocument::selectedViewChanged, &m_dispatcher, validateLater);
    connect(&m_document->undoManager(), &Foundation::UndoManager::changed, &m_dispatcher, validateLater);
    m_titles->follow(&m_dispatcher, m_ui->undoItem, m_ui->redoItem);
    m_dispatcher.validate();
}

QList<QObject *> DocumentWindowController::responders(const QString &action)
{
    QList<QObject *> chain;
    if (m_textCommands->takes(action))
        chain.append(m_textCommands.get());
    chain.append({this, m_formFocus.get(), m_hiddenContact.get()});
    chain.append(m_document->responders());
    chain.append(m_lastResponders);
    return chain;
}

void DocumentWindowController::lockCategoryMenu()
{
    if (m_document->isEncrypted())
        m_categoryFilter->categoryMenu().clear();
    m_ui->myCategorySuperMenuItem->setEnabled(m_document->isDecrypted());
}

Rect DocumentWindowController::frame() const
{
    return m_frame.frame();
}

void DocumentWindowController::setFrame(const Rect &frame, bool)
{
    m_frame.setFrame(frame);
}

Size DocumentWindowController::minSize() const
{
    return {double(m_window.minimumWidth()), double(m_window.minimumHeight())};
}

bool DocumentWindowController::isToolbarVisible() const
{
    return m_faces->isToolbarVisible();
}

void DocumentWindowController::setToolbarVisible(bool visible)
{
    m_faces->setToolbarVisible(visible);
    m_dispatcher.validateLater();
}

void DocumentWindowController::orderOut()
{
    m_window.hide();
}

void DocumentWindowController::center()
{
    m_frame.center();
}

void DocumentWindowController::makeKeyAndOrderFront()
{
    if (m_window.isMinimized())
        m_window.showNormal();
    m_window.show();
    m_window.raise();
    m_window.takeKeyboard();
}

void DocumentWindowController::close()
{
    m_sheets.drop();
    m_window.hide();
    deleteLater();
}

void DocumentWindowController::beginSheet(const QString &name, SheetEnd ended)
{
    m_sheets.begin(
        name,
        [this, &kind = sheetKindOfName(name)](QWidget *parent) {
            SheetDialog *sheet = newSheet(kind, m_document, m_binder, parent);
            m_categoryTable = sheet->findChild<CategoryTable *>();
            return sheet;
        },
        std::move(ended));
}

void DocumentWindowController::endSheet(const QString &name, int returnCode)
{
    m_sheets.end(name, returnCode);
}

void DocumentWindowController::beginAlert(const Alert &alert, AlertAnswer answered)
{
    m_sheets.begin(
        QString(), [alert](QWidget *parent) { return new AlertDialog(alert, parent); }, std::move(answered),
        alert.mayStandOverLock ? SheetQueue::Over::LockedWindow : SheetQueue::Over::OpenWindow);
}

void DocumentWindowController::beginSavePanel(const QString &suggestedPath, SavePanel::PathChosen ended)
{
    m_savePanel.begin(suggestedPath, ended);
}

void DocumentWindowController::setDecryptProgressShown(bool shown)
{
    // Both must be painted now, because the following work blocks the event loop.
    if (shown)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
    m_ui->decryptProgressIndicator->setRunning(shown);
    if (!shown)
        m_ui->passwordToDecryptField->selectAll();
}

void DocumentWindowController::clearPasswordToDecryptField()
{
    m_ui->passwordToDecryptField->clear();
}

void DocumentWindowController::scrollRowToVisible(qsizetype row)
{
    m_ui->myTableView->scrollRowToVisible(row);
}

void DocumentWindowController::redrawColumn(const QString &identifier)
{
    m_ui->myTableView->redrawColumn(identifier);
}

void DocumentWindowController::redrawCategoryViews()
{
    m_ui->categoryView->refresh();
    m_ui->categoryView2->refresh();
}

void DocumentWindowController::redrawCategoryTable()
{
    if (m_categoryTable)
        m_categoryTable->viewport()->update();
}

void DocumentWindowController::scrollCategoryViewToBottom()
{
    if (m_categoryTable)
        m_categoryTable->scrollToBottom();
}

void DocumentWindowController::scrollListViewToBottom()
{
    m_ui->myTableView->scrollToBottom();
}

void DocumentWindowController::attachCategoryMenu()
{
    m_ui->myCategorySuperMenuItem->setMenu(&m_categoryFilter->categoryMenu());
}

void DocumentWindowController::setSearchInfoShown(bool shown)
{
    m_ui->grayStatusView->setVisible(shown);
}

VLVSplitViewDelegate &DocumentWindowController::mySplitViewDelegate()
{
    return m_ui->mySplitView->mySplitViewDelegate();
}

Foundation::Color DocumentWindowController::controlTextColor() const
{
    return componentsOfColor(m_window.palette().color(QPalette::WindowText));
}

void DocumentWindowController::printWhiteView()
{
    m_cardPrinter->beginPrint();
}

void DocumentWindowController::runPageLayout()
{
    m_cardPrinter->beginPageLayout();
}

void DocumentWindowController::controlTextDidChange(const ArrayController *controller, int tag)
{
    if (!controller)
        m_document->labelCommands().captionDidChange();
    else if (controller == m_document->myCategoryArrayController())
        m_document->categoryEditFieldDelegate().controlTextDidChange();
    else
        m_document->controlTextDidChange(tag);
}

void DocumentWindowController::find(const ActionSender &)
{
    setToolbarVisible(true);
    m_ui->searchField->setFocus(Qt::ShortcutFocusReason);
    m_ui->searchField->selectAll();
}

bool DocumentWindowController::validateMenuItem(Foundation::MenuItem &item)
{
    item.isChecked = isToolbarVisible();
    return true;
}

void DocumentWindowController::toggleToolbarShown(const ActionSender &)
{
    setToolbarVisible(!isToolbarVisible());
}
