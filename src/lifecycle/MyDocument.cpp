#include "lifecycle/MyDocument.h"

#include "archive/KeyedArchive.h"
#include "core/ContentStamp.h"
#include "core/DecryptPipeline.h"
#include "core/DocumentReader.h"
#include "core/SavePipeline.h"
#include "helpers/VLAppSupportUtility.h"
#include "helpers/transformers/HelperTransformers.h"
#include "platform/ColorPanel.h"
#include "platform/Services.h"

#include <QPointer>

#include <cmath>

using Foundation::ActionSender;
using Foundation::Alert;
using Foundation::AlertButton;
using Foundation::Array;
using Foundation::ArrayController;
using Foundation::ColorPanel;
using Foundation::Dictionary;
using Foundation::DocumentError;
using Foundation::DocumentResult;
using Foundation::Failure;
using Foundation::Predicate;
using Foundation::Services;
using Foundation::Value;

MyDocument::MyDocument(QObject *parent)
    : VLCryptoDoc(parent)
    , DocumentProperties(mutableState())
    , m_records(*this, m_categories)
    , m_categoryUses(m_records, m_categories)
    , m_recordCommands(*this, m_records, m_categories)
    , m_categoryCommands(*this, m_records, m_categories, m_categoriesForMenu)
    , m_labelCommands(*this)
    , m_fieldCommands(m_records)
    , m_categoryEditFieldDelegate(*this, m_categoryCommands)
{
    installDocumentTransformers();
    connect(&m_categories, &ArrayController::arrangedObjectsChanged, &m_categoriesForMenu,
            [this] { m_categoriesForMenu.setContent(m_categories.content()); });
    connect(&m_categories, &ArrayController::objectsChanged, &m_categoriesForMenu,
            [this](const std::vector<std::size_t> &indexes) {
                for (const std::size_t index : indexes)
                    m_categoriesForMenu.noteChange(m_categories.arrangedObjects()[index]);
            });
    setDocumentCreationDate(Value::date(Services::shared().clock().secondsSince2001()));
    m_categories.setContent(state().myCategoryArray);
    m_records.setContent(state().myArray);
    m_allRecords.setContent(state().myArray);
}

MyDocument::~MyDocument() = default;

Foundation::DocumentType MyDocument::type()
{
    return {VLAppSupportUtility::NameInPaths, QStringLiteral("vexcards")};
}

void MyDocument::setMyArray(const Ref<Array> &records)
{
    mutableState().myArray = records;
    m_records.setContent(records);
}

void MyDocument::setMyCategoryArray(const Ref<Array> &categories)
{
    mutableState().myCategoryArray = categories;
    m_categories.setContent(categories);
}

void MyDocument::setMyLabelDictionary(const Ref<Dictionary> &labels)
{
    mutableState().myLabelDictionary = labels;
    Q_EMIT myLabelDictionaryChanged();
}

void MyDocument::setDefaultDictionaryLabel(const ActionSender &)
{
    setMyLabelDictionary(defaultLabelDictionary());
}

void MyDocument::setSelectedView(int view)
{
    if (m_selectedView == view)
        return;
    m_selectedView = view;
    Q_EMIT selectedViewChanged();
}

void MyDocument::switchViewEditMode(const ActionSender &)
{
    setSelectedView(m_selectedView == EditMode ? ViewMode : EditMode);
}

void MyDocument::setCategoryString(const QString &category)
{
    m_categoryString = category;
    Q_EMIT categoryStringChanged();
}

void MyDocument::setSearchCategory(const QString &category)
{
    m_searchCategory = category;
    Q_EMIT searchCategoryChanged();
}

void MyDocument::setSearchText(const QString &text)
{
    m_searchText = text;
    Q_EMIT searchTextChanged();
}

void MyDocument::setSearchPredicate(const std::optional<Predicate> &predicate)
{
    m_searchPredicate = predicate;
    Q_EMIT searchPredicateChanged();
}

void MyDocument::doSearch(const ActionSender &)
{
    if (m_searchText.isEmpty()) {
        setSearchPredicate(std::nullopt);
        return;
    }
    const Predicate nameOrCategory =
        Predicate::anyOf({Predicate::contains(QStringLiteral("name"), m_searchText),
                          Predicate::contains(QStringLiteral("category"), m_searchText)});
    setSearchPredicate(Predicate::allOf({nameOrCategory}));
}

void MyDocument::scrollListViewToBottom(const ActionSender &)
{
    if (myWindow())
        myWindow()->scrollListViewToBottom();
}

void MyDocument::printDocument(const ActionSender &)
{
    if (myWindow())
        myWindow()->printWhiteView();
}

void MyDocument::runPageLayout(const ActionSender &)
{
    if (myWindow())
        myWindow()->runPageLayout();
}

void MyDocument::setProperTextColor(const Foundation::Color &color)
{
    m_properTextColor = color;
    Q_EMIT properTextColorChanged();
}

void MyDocument::setUpSplitView()
{
    VLVSplitViewDelegate &delegate = myWindow()->mySplitViewDelegate();
    delegate.setMinHSizeLeft(210);
    delegate.setMaxHSizeLeft(660);
    delegate.setMinHSizeRight(450);
    delegate.setMaxHSizeRight(9999);
    delegate.growingRule = VLVSplitViewDelegate::BothGrow;
    delegate.setCanCollapseLeft(false);
    delegate.setCanCollapseRight(false);
}

void MyDocument::controlTextDidChange(int tag)
{
    m_records.controlTextDidChange();
    m_recordCommands.controlTextDidChange(tag);
}

void MyDocument::windowControllerDidLoadNib()
{
    window()->orderOut(); // The window is hidden until it is complete.
    VLCryptoDoc::windowControllerDidLoadNib();
    setProperTextColor(myWindow()->controlTextColor());
    setUpSplitView();
    if (!m_categories.canRemove())
        m_categories.addObject(m_categories.newObject());
    connect(&ColorPanel::shared(), &ColorPanel::colorDidChange, &m_categoryCommands,
            [this] { m_categoryCommands.colorChanged({}); });
    m_categoryCommands.setUpCategorySubMenu({});
    m_categoryCommands.synkCategorySubMenu({});
    if (fileURL().isNull())
        setDocumentCreationDate(Value::date(Services::shared().clock().secondsSince2001()));
    if (isEncrypted())
        window()->setToolbarVisible(false);
    updateChangeCount(ChangeCleared); // A new window always begins with an unedited document.
    if (!fileURL().isNull())
        noteSavedContent();
    // The strip is visible in the interface file, so it must be hidden here.
    m_prevFilterInaction = true;
    showSearchInfoView(false);
    Services::shared().mainQueue().addOperation([document = QPointer(this)] {
        if (!document || !document->window())
            return;
        document->window()->center();
        document->window()->makeKeyAndOrderFront();
    });
}

void MyDocument::windowDidBecomeKey()
{
    if (requiresMandatoryPassword() && plainPassword().isEmpty()) {
        // The sheet opens after the window has become active.
        Services::shared().mainQueue().addOperation([document = QPointer(this)] {
            if (document)
                document->askMandatoryPasswordToProtectDocument();
        });
    }
    mutableState().requiresMandatoryPassword = false;
}

void MyDocument::lockDocument(const ActionSender &)
{
    const QString reinsert =
        tr("To browse the document data again you will need to re-insert the master password");
    const QString informativeText =
        isDocumentEdited() ? tr("Before locking the document you need to save it on disk.\n%1").arg(reinsert)
                           : reinsert;
    showAlert({tr("Lock Document back to the crypted state?"),
               informativeText,
               {{tr("OK")}, {tr("Cancel"), AlertButton::Cancel}}},
              [this](int returnCode) {
                  if (returnCode != Alert::FirstButtonReturn)
                      return;
                  m_isLockedByHand = true;
                  lockLater();
              });
}

void MyDocument::lockLater()
{
    if (window())
        window()->endAllSheets();
    // After the sheets were closed.
    Services::shared().mainQueue().addOperation([document = QPointer(this)] {
        // A command and the timer may both lock on the same turn.
        if (!document || document->isClosed() || !document->isDecrypted())
            return;
        document->keepUnsavedContent();
        document->doLockDocument();
    });
}

void MyDocument::lockAutomatically()
{
    if (isEncrypted() || plainPassword().isEmpty() || fileURL().isNull())
        return;
    lockLater();
}

SavePipeline::WindowPlacement MyDocument::windowPlacement() const
{
    return window() ? SavePipeline::WindowPlacement{window()->frame(), window()->isToolbarVisible()}
                    : SavePipeline::WindowPlacement();
}

void MyDocument::doLockDocument()
{
    SavePipeline pipeline(mutableState());
    // The frame is stored before the window shrinks, because the next save of the locked document writes it.
    if (isDecrypted() && !plainPassword().isEmpty() && !fileURL().isNull())
        setOSXPlatformDictionary(SavePipeline::platformDictionary(windowPlacement()));
    pipeline.encryptData();
    if (const auto canBeRead = checkCanBeRead(); !canBeRead) {
        // The locked content could not be opened again, so the lock is cancelled.
        m_isLockedByHand = false;
        showAlert({tr("The document “%1” could not be locked.").arg(displayName()),
                   canBeRead.words(),
                   {{tr("OK")}}},
                  [](int) {});
        return;
    }
    setYouCanSave(false);
    setIsEncrypted(true);
    if (!window())
        return;
    setMakeToolbarVisibleAtDecrypt(window()->isToolbarVisible());
    window()->setToolbarVisible(false);
    // The upper edge of the window does not move.
    Foundation::Rect frame = window()->frame();
    const Foundation::Size least = window()->minSize();
    frame.y += std::trunc(frame.height - least.height);
    frame.width = least.width;
    frame.height = least.height;
    window()->setFrame(frame, true);
}

qint32 MyDocument::Decript()
{
    // A default category is made while the controller still has the former content. Required: its name and id
    // must be unused there.
    const Ref<Array> formerRecords = state().myArray;
    DecryptPipeline pipeline(mutableState(), Services::shared().clock(),
                             [this] { return m_categories.newObject(); });
    const auto deciphered = pipeline.decript();
    if (pipeline.hasReplacedLabels())
        Q_EMIT myLabelDictionaryChanged();
    if (!deciphered)
        return statusOf(deciphered);
    m_categories.replaceContent(state().myCategoryArray);
    m_records.replaceContent(state().myArray);
    m_records.sharedFieldEdits().replaceRecords(*formerRecords, *state().myArray);
    m_recordCommands.undoneRecords().replace(*formerRecords, *state().myArray, *state().myCategoryArray);
    m_allRecords.rearrangeObjects();
    m_categoryCommands.synkCategorySubMenu({});
    updateChangeCount(ChangeCleared);
    return DecryptSuccess;
}

qint32 MyDocument::decryptDone()
{
    setIsEncrypted(false);
    m_isLockedByHand = false;
    mutableState().myEncryptedArray = nullptr;
    m_allRecords.setContent(state().myArray);
    if (myWindow())
        myWindow()->clearPasswordToDecryptField();
    switchToViewMode();
    if (window()) {
        window()->setToolbarVisible(makeToolbarVisibleAtDecrypt());
        if (useMyWinRect())
            window()->setFrame(myWinRectToUse(), true);
    }
    setYouCanSave(true);
    // Later, when the content is on the screen, so that the first letter of a search need not wait.
    Services::shared().mainQueue().addOperation([document = QPointer(this)] {
        if (document)
            document->m_records.prepareSearch();
    });
    return 1;
}

std::optional<QByteArray> MyDocument::dataOfType(const QString &)
{
    return SavePipeline(mutableState()).dataOfType(windowPlacement());
}

bool MyDocument::readFromData(const QByteArray &bytes, const QString &, Failure<DocumentError> *error)
{
    // Reverting an open document must not change it if its file cannot be read, so the file is tried first.
    DocumentState trial;
    const bool isReverting = window() != nullptr;
    const Foundation::Clock &clock = Services::shared().clock();
    auto loaded = readDocument(bytes, isReverting ? trial : mutableState(), clock);
    if (isReverting && loaded)
        loaded = readDocument(bytes, mutableState(), clock);
    if (loaded) {
        if (window())
            window()->setToolbarVisible(false);
        Q_EMIT isEncryptedChanged();
        Q_EMIT myLabelDictionaryChanged();
        return true;
    }
    if (loaded.failedWith(ReadError::NotADocument)) {
        *error = {DocumentError::Content, tr("It is not a Vexarel document or is damaged.")};
        return false;
    }
    *error = {DocumentError::NewerFormat};
    // Required: the alert opens the site of the maker too, so it is opened twice.
    if (VLAppSupportUtility::sayFilecreatedWithANewerVersion(this))
        VLAppSupportUtility::visitUs(this);
    return false;
}

quint64 MyDocument::contentStamp() const
{
    return ::contentStamp(state());
}

DocumentResult<> MyDocument::checkMayBeWritten() const
{
    // Bytes that are written now could never be opened again. This check protects every path to the disk.
    if (isEncrypted())
        return Failure{DocumentError::NotNow, tr("It is locked. Enter the master password first.")};
    if (plainPassword().isEmpty())
        return Failure{DocumentError::NotNow, tr("It has no master password yet.")};
    return {};
}

DocumentResult<> MyDocument::checkCanBeRead() const
{
    const auto canBeRead = SavePipeline::canBeRead(state());
    if (canBeRead)
        return {};
    if (canBeRead.failedWith(SavePipeline::UnreadableBecause::NotEnciphered))
        return Failure{DocumentError::Content, tr("It could not be enciphered.")};
    return Failure{DocumentError::Content,
                   tr("It holds more than can be read again, or lists that lie in each other too deeply. "
                      "Delete "
                      "the contacts that another program has filled in so, and try again.")};
}

bool MyDocument::canBeItsFile(QByteArrayView head, QByteArrayView tail, qint64 size) const
{
    return Foundation::mayBeArchive(head, tail, size);
}

bool MyDocument::keepsRecoveryFile() const
{
    // Unsaved content is discarded when a document that was locked by hand is closed. The question before the
    // lock says that it must be saved first.
    return isEncrypted() && !m_isLockedByHand;
}

QString MyDocument::autosavingFileType() const
{
    return isEncrypted() || plainPassword().isEmpty() ? QString() : VLCryptoDoc::autosavingFileType();
}

bool MyDocument::validateMenuItem(Foundation::MenuItem &item)
{
    static const QStringList needOpenContent = {QStringLiteral("importFromAddressBook"),
                                                QStringLiteral("exportToText"),
                                                QStringLiteral("importFromText"),
                                                QStringLiteral("addRow"),
                                                QStringLiteral("deleteRow"),
                                                QStringLiteral("switchViewEditMode"),
                                                QStringLiteral("editLabelSheet"),
                                                QStringLiteral("editCategoriesSheet"),
                                                QStringLiteral("deleteRows"),
                                                QStringLiteral("lockDocument")};
    if (item.action == u"switchViewEditMode")
        item.isChecked = m_selectedView == EditMode;
    if (item.action == u"showAllCategory")
        item.isChecked = m_categoryString.isEmpty();
    if (item.action == u"doSelectCatMenu")
        item.isChecked = m_categoryString == item.title;
    if (needOpenContent.contains(item.action))
        return isDecrypted();
    return VLCryptoDoc::validateMenuItem(item);
}

void MyDocument::showSearchInfoView(bool shown)
{
    if (m_prevFilterInaction == shown)
        return;
    m_prevFilterInaction = shown;
    if (myWindow())
        myWindow()->setSearchInfoShown(shown);
}
