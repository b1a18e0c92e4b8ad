#pragma once

#include "lifecycle/MyDocument.h"
#include "window/application/DocumentMainWindow.h"
#include "window/application/HiddenContact.h"
#include "window/application/WindowFaces.h"
#include "window/application/WindowFrame.h"
#include "window/application/WindowTitles.h"
#include "window/binding/Binder.h"
#include "window/card/CardPrinter.h"
#include "window/card/FormFocus.h"
#include "window/controls/ActionDispatcher.h"
#include "window/controls/MenuItemValidator.h"
#include "window/controls/SheetQueue.h"
#include "window/controls/TextCommands.h"
#include "window/list/CategoryFilter.h"
#include "window/sheets/SavePanel.h"

#include <memory>

class CategoryTable;

namespace Ui
{
class MyDocument;
}

// The window of one document, made from the interface file "MyDocument". The bindings of that file connect
// its controls with the document; this class implements what the document asks of its window.
//
// When the document closes its window, the controller deletes itself on a later turn of the event loop.
class DocumentWindowController : public QObject, public MyDocumentWindow, public MenuItemValidator
{
    Q_OBJECT

public:
    // `lastResponders` come after the document in the responder chain and must outlive the controller. The
    // document must outlive the controller or close it.
    DocumentWindowController(MyDocument *document, QList<QObject *> lastResponders);
    ~DocumentWindowController() override;

    DocumentMainWindow *mainWindow() { return &m_window; }
    SavePanel &savePanel() { return m_savePanel; }
    CardPrinter &cardPrinter() { return *m_cardPrinter; }

    Foundation::Rect frame() const override;
    // Accepts any frame, see WindowFrame. Does not animate, because this desktop has no animated resizing.
    void setFrame(const Foundation::Rect &frame, bool animate) override;
    Foundation::Size minSize() const override;
    bool isToolbarVisible() const override;
    void setToolbarVisible(bool visible) override;

    void orderOut() override;
    void center() override;
    void makeKeyAndOrderFront() override;
    void close() override;

    void beginSheet(const QString &name, SheetEnd ended) override;
    void endSheet(const QString &name, int returnCode) override;
    void endAllSheets() override { m_sheets.endAll(); }
    void beginAlert(const Foundation::Alert &alert, Foundation::AlertAnswer answered) override;
    void beginSavePanel(const QString &suggestedPath, SavePanel::PathChosen ended) override;

    void setDecryptProgressShown(bool shown) override;
    void clearPasswordToDecryptField() override;
    void scrollRowToVisible(qsizetype row) override;
    void redrawColumn(const QString &identifier) override;
    void redrawCategoryViews() override;
    void redrawCategoryTable() override;
    void scrollCategoryViewToBottom() override;
    void scrollListViewToBottom() override;
    PopUpMenu &actionPopUp() override { return *m_categoryFilter; }
    void attachCategoryMenu() override;
    void setSearchInfoShown(bool shown) override;
    VLVSplitViewDelegate &mySplitViewDelegate() override;
    Foundation::Color controlTextColor() const override;
    void printWhiteView() override;
    void runPageLayout() override;

    bool validateMenuItem(Foundation::MenuItem &item) override;
    Q_INVOKABLE void toggleToolbarShown(const Foundation::ActionSender &sender);
    // Shows the toolbar and moves the focus to the search field.
    Q_INVOKABLE void find(const Foundation::ActionSender &sender);

private:
    QList<QObject *> responders(const QString &action);
    void setUpControls();
    ShowWholeText wholeTextSheets();
    void setUpTable();
    void setUpToolbar();
    void followDocument();
    void followItems();
    void lockCategoryMenu();
    void controlTextDidChange(const Foundation::ArrayController *controller, int tag);

    MyDocument *m_document;
    QList<QObject *> m_lastResponders;
    DocumentMainWindow m_window;
    WindowFrame m_frame;
    std::unique_ptr<Ui::MyDocument> m_ui;
    ActionDispatcher m_dispatcher;
    std::unique_ptr<WindowFaces> m_faces;
    std::unique_ptr<WindowTitles> m_titles;
    Binder m_binder;
    std::unique_ptr<TextCommands> m_textCommands;
    std::unique_ptr<CategoryFilter> m_categoryFilter;
    std::unique_ptr<FormFocus> m_formFocus;
    std::unique_ptr<HiddenContact> m_hiddenContact;
    SheetQueue m_sheets;
    SavePanel m_savePanel;
    std::unique_ptr<CardPrinter> m_cardPrinter;
    QPointer<CategoryTable> m_categoryTable; // null while its sheet is not open
};
