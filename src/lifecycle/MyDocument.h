#pragma once

#include "browse/CategoryUses.h"
#include "browse/FieldCommands.h"
#include "browse/LabelCommands.h"
#include "browse/RecordCommands.h"
#include "browse/VLCategoryEditFieldDelegate.h"
#include "core/SavePipeline.h"
#include "lifecycle/DocumentProperties.h"
#include "lifecycle/VLCryptoDoc.h"
#include "values/Predicate.h"

// A document with an address book. It has the DocumentState and delegates the work: saving and deciphering to
// the pipelines of core, records and categories to the controllers and commands of browse. See
// MyDocumentWindow for what it needs from its window.
class MyDocument : public VLCryptoDoc, public DocumentProperties, private BrowseHost
{
    Q_OBJECT
    Q_PROPERTY(FilteringArrayController *myArrayController READ myArrayController CONSTANT)
    Q_PROPERTY(Foundation::ArrayController *myAllArrayController READ myAllArrayController CONSTANT)
    Q_PROPERTY(
        VLColoredCategoryArrayController *myCategoryArrayController READ myCategoryArrayController CONSTANT)
    Q_PROPERTY(Foundation::ArrayController *categoryArrayControllerForMenu READ categoryArrayControllerForMenu
                   CONSTANT)
    Q_PROPERTY(CategoryUses *categoryUses READ categoryUses CONSTANT)
    Q_PROPERTY(
        QString categoryString READ categoryString WRITE setCategoryString NOTIFY categoryStringChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(
        QString searchCategory READ searchCategory WRITE setSearchCategory NOTIFY searchCategoryChanged)
    Q_PROPERTY(std::optional<Foundation::Predicate> searchPredicate READ searchPredicate WRITE
                   setSearchPredicate NOTIFY searchPredicateChanged)
    Q_PROPERTY(
        Foundation::Value myLabelDictionary READ myLabelDictionaryValue NOTIFY myLabelDictionaryChanged)
    Q_PROPERTY(int selectedView READ selectedView WRITE setSelectedView NOTIFY selectedViewChanged)
    Q_PROPERTY(QString fileDocRelease READ fileDocRelease NOTIFY isEncryptedChanged)
    Q_PROPERTY(Foundation::Color properTextColor READ properTextColor NOTIFY properTextColorChanged)
    Q_PROPERTY(bool falseValue READ falseValue CONSTANT)
    Q_PROPERTY(bool yesVal READ yesVal CONSTANT)

public:
    // The two modes of the detail: card and form.
    enum DetailView { ViewMode = 0, EditMode = 1 };

    explicit MyDocument(QObject *parent = nullptr);
    ~MyDocument() override;

    // "vexcards" documents of "vexarel".
    static Foundation::DocumentType type();
    static QString windowNibName() { return QStringLiteral("MyDocument"); }

    FilteringArrayController *myArrayController() { return &m_records; }
    Foundation::ArrayController *myAllArrayController() { return &m_allRecords; }
    VLColoredCategoryArrayController *myCategoryArrayController() { return &m_categories; }
    // The categories in the order of the pop-up in the record form.
    Foundation::ArrayController *categoryArrayControllerForMenu() { return &m_categoriesForMenu; }
    CategoryUses *categoryUses() { return &m_categoryUses; }
    RecordCommands &recordCommands() { return m_recordCommands; }
    CategoryCommands &categoryCommands() { return m_categoryCommands; }
    LabelCommands &labelCommands() { return m_labelCommands; }
    // The delegate of the name field in the sheet of categories.
    VLCategoryEditFieldDelegate &categoryEditFieldDelegate() { return m_categoryEditFieldDelegate; }

    // The content. A setter replaces the object and updates the controllers.
    const Ref<Array> &myArray() const { return state().myArray; }
    void setMyArray(const Ref<Array> &records);
    const Ref<Array> &myCategoryArray() const { return state().myCategoryArray; }
    void setMyCategoryArray(const Ref<Array> &categories);
    const Ref<Dictionary> &myLabelDictionary() const { return state().myLabelDictionary; }
    void setMyLabelDictionary(const Ref<Dictionary> &labels);
    static Ref<Dictionary> defaultLabelDictionary() { return ::defaultLabelDictionary(); }
    Q_INVOKABLE void setDefaultDictionaryLabel(const Foundation::ActionSender &sender);
    int selectedView() const { return m_selectedView; }
    void setSelectedView(int view);
    void switchToEditMode() override { setSelectedView(EditMode); }
    void switchToViewMode() { setSelectedView(ViewMode); }
    Q_INVOKABLE void switchViewEditMode(const Foundation::ActionSender &sender);

    // The name of the shown category for the check marks of menus; empty for all. Does not filter.
    const QString &categoryString() const { return m_categoryString; }
    void setCategoryString(const QString &category) override;

    // The text of the search field. The list uses it when search() is called.
    QString searchText() const override { return m_searchText; }
    void setSearchText(const QString &text) override;
    // Has no effect. Prescribed; no caller yet.
    const QString &searchCategory() const { return m_searchCategory; }
    void setSearchCategory(const QString &category);
    // The condition that doSearch() made; nothing for an empty search text.
    const std::optional<Foundation::Predicate> &searchPredicate() const { return m_searchPredicate; }
    void setSearchPredicate(const std::optional<Foundation::Predicate> &predicate);
    // Makes a condition from the search text. Nothing evaluates it. Prescribed; no caller yet.
    Q_INVOKABLE void doSearch(const Foundation::ActionSender &sender);

    // Do nothing. Prescribed; no caller yet. The order of the list is that of its sort descriptors.
    Q_INVOKABLE void makeNameFieldFirstResponder(const Foundation::ActionSender &) {}
    Q_INVOKABLE void debug1(const Foundation::ActionSender &) {}
    Q_INVOKABLE void sortByCategory(const Foundation::ActionSender &) {}
    Q_INVOKABLE void sortByName(const Foundation::ActionSender &) {}
    Q_INVOKABLE void scrollListViewToBottom(const Foundation::ActionSender &sender);

    // Prints the selected contacts after a dialog.
    Q_INVOKABLE void printDocument(const Foundation::ActionSender &sender);
    // Opens the dialog for paper and margins.
    Q_INVOKABLE void runPageLayout(const Foundation::ActionSender &sender);

    // The colour of text in controls of the desktop, from the time when the window was made.
    const Foundation::Color &properTextColor() const { return m_properTextColor; }
    void setProperTextColor(const Foundation::Color &color);

    // Constants for bindings.
    bool falseValue() const { return false; }
    bool yesVal() const { return true; }

    // The user typed into a field of the form. `tag` is that of the field in the interface file.
    void controlTextDidChange(int tag);

    // Called when the window was made, and each time it becomes active.
    void windowControllerDidLoadNib() override;
    void windowDidBecomeKey();

    // Asks, and locks the document if the user agrees. Required: does not save first. Unsaved content is
    // written into a recovery file.
    Q_INVOKABLE void lockDocument(const Foundation::ActionSender &sender);
    // Locks the document: enciphers the content with all changes in memory and shrinks the window. Required:
    // checks no condition and writes no file.
    void doLockDocument();
    // Locks without asking, also while a sheet is open. Does nothing for a document without a password or
    // without a file, and for a locked document.
    void lockAutomatically();

    qint32 Decript() override;
    qint32 decryptDone() override;

    Foundation::DocumentType documentType() const override { return type(); }
    [[nodiscard]] std::optional<QByteArray> dataOfType(const QString &type) override;
    [[nodiscard]] bool readFromData(const QByteArray &bytes, const QString &type,
                                    Foundation::Failure<Foundation::DocumentError> *error) override;
    Foundation::DocumentResult<> checkMayBeWritten() const override;
    Foundation::DocumentResult<> checkCanBeRead() const override;
    bool canBeItsFile(QByteArrayView head, QByteArrayView tail, qint64 size) const override;
    QString autosavingFileType() const override;
    bool keepsRecoveryFile() const override;

    QList<QObject *> responders() override
    {
        return {&m_recordCommands, &m_categoryCommands, &m_labelCommands, &m_fieldCommands, &m_records, this};
    }
    bool validateMenuItem(Foundation::MenuItem &item) override;

    bool isDecrypted() const override { return VLCryptoDoc::isDecrypted(); }
    void updateChangeCount(int change) override { VLCryptoDoc::updateChangeCount(change); }
    Foundation::UndoManager &undoManager() override { return VLCryptoDoc::undoManager(); }

protected:
    quint64 contentStamp() const override;

Q_SIGNALS:
    void myLabelDictionaryChanged();
    void selectedViewChanged();
    void categoryStringChanged();
    void searchTextChanged();
    void searchCategoryChanged();
    void searchPredicateChanged();
    void properTextColorChanged();

private:
    Foundation::Value myLabelDictionaryValue() const { return state().myLabelDictionary; }

    BrowseWindow *browseWindow() override { return myWindow(); }
    void askForDocumentPassword() override { documentPassword({}); }
    void setUpSplitView();
    void lockLater();
    SavePipeline::WindowPlacement windowPlacement() const;
    void showSearchInfoView(bool shown) override;

    VLColoredCategoryArrayController m_categories;
    FilteringArrayController m_records;
    Foundation::ArrayController m_allRecords;
    Foundation::ArrayController m_categoriesForMenu;
    CategoryUses m_categoryUses;
    RecordCommands m_recordCommands;
    CategoryCommands m_categoryCommands;
    LabelCommands m_labelCommands;
    FieldCommands m_fieldCommands;
    VLCategoryEditFieldDelegate m_categoryEditFieldDelegate;
    int m_selectedView = ViewMode;
    bool m_isLockedByHand = false;
    QString m_categoryString = QStringLiteral("");
    QString m_searchText;
    QString m_searchCategory;
    std::optional<Foundation::Predicate> m_searchPredicate;
    Foundation::Color m_properTextColor;
    // Whether the strip that describes the filters is shown.
    bool m_prevFilterInaction = false;
};
