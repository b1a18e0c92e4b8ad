#include "Journey.h"

#include "browse/RecordName.h"
#include "window/desktop/DesktopColorPanel.h"
#include "window/list/RecordTable.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QPageSetupDialog>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QTextStream>
#include <QToolBar>
#include <QToolButton>

namespace
{

const QString password = QStringLiteral("correct horse");

QToolButton *toolButton(const DocumentMainWindow *window, const QString &title)
{
    for (QToolButton *button : window->findChildren<QToolButton *>()) {
        if (button->text() == title)
            return button;
    }
    return nullptr;
}

} // namespace

void Journey::makeDocument()
{
    giveFirstPassword();
    addContacts();
    chooseCategories();
    changeCaptions();
    readContacts();
    printContact();
    resizeWindow();
    filterContacts();
    duplicateAndUndo();
    saveAndQuit();
}

void Journey::openDocument()
{
    unlock();
    checkContent();
    deleteAndUndo();
    lockAndUnlock();
    changePassword();
    editSeveral();
    closeWithQuestion();
}

void Journey::enterPasswords(const QString &first, const QString &second)
{
    m_stage.await(QStringLiteral("the sheet for the first password comes"), [this] {
        const auto *field = m_stage.control<QLineEdit>(QStringLiteral("password"));
        return field && field->window()->isActiveWindow();
    });
    for (const QString &text : {first, second}) {
        m_stage.press(Qt::Key_A, Qt::ControlModifier);
        m_stage.type(text);
        m_stage.press(Qt::Key_Tab);
    }
}

void Journey::giveFirstPassword()
{
    m_stage.step(QStringLiteral("A new document asks for a master password"));
    enterPasswords(QStringLiteral("correct horse"), QStringLiteral("correct house"));
    m_stage.takePicture(QStringLiteral("new-document"));
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(QStringLiteral("Password inserted in the two fields doesn't match"),
                        QStringLiteral("Retry"), QStringLiteral("passwords-differ"));
    enterPasswords(QStringLiteral("short"), QStringLiteral("short"));
    m_stage.takePicture(QStringLiteral("retry"));
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(QStringLiteral("Password too short"), QStringLiteral("Retry"),
                        QStringLiteral("password-too-short"));
    enterPasswords(password, password);
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(QStringLiteral("Password accepted"), QStringLiteral("OK"),
                        QStringLiteral("password-accepted"));
    m_stage.await(QStringLiteral("the password is taken"),
                  [&] { return m_stage.document()->plainPassword() == password; });
    m_stage.takePicture(QStringLiteral("empty-document"));
}

// The fields in the order of the Tab key.
void Journey::addContact(const QStringList &fields)
{
    m_stage.await(QStringLiteral("the form is ready for typing"), [] {
        const auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return field && field->objectName() == u"firstName" && field->hasSelectedText();
    });
    for (const QString &text : fields) {
        if (!text.isNull()) {
            if (auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget()))
                line->selectAll();
            m_stage.type(text);
        }
        m_stage.press(Qt::Key_Tab);
    }
}

void Journey::addContacts()
{
    m_stage.step(QStringLiteral("Three contacts are typed"));
    const QString skip;
    m_stage.click(toolButton(m_stage.window(), QStringLiteral("Add")));
    m_stage.takePicture(QStringLiteral("first-contact-added"));
    addContact({QStringLiteral("Zoë"), QStringLiteral("Åström"), QStringLiteral("Fjord Ceramics"), skip, skip,
                QStringLiteral("+47 22 90 11 40"), skip, skip, QStringLiteral("zoe@fjordceramics.example"),
                QStringLiteral("fjordceramics.example"), QStringLiteral("Havnegata 12"), skip,
                QStringLiteral("+47 900 12 345"), skip, QStringLiteral("zoe.a@post.example"), skip, skip,
                QStringLiteral("Birthday 4 May. Prefers letters; bring the blue glaze samples in autumn.")});
    m_stage.press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    addContact({QStringLiteral("Борис"), QStringLiteral("Кант"), skip, skip, skip, skip, skip, skip, skip,
                skip, skip, QStringLiteral("+7 495 000 00 00")});
    m_stage.press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    addContact(
        {QStringLiteral("Anna"), QStringLiteral("Quell"), QStringLiteral("Anders & Sons <b>Joinery</b>")});
    auto *isCompany = m_stage.control<QWidget>(QStringLiteral("isCompany"));
    isCompany->setFocus();
    m_stage.press(Qt::Key_Space);
    m_stage.await(QStringLiteral("the list shows the three names"), [&] {
        return namesInList() == QStringList({QStringLiteral("Zoë Åström"), QStringLiteral("Борис Кант"),
                                             QStringLiteral("Anders & Sons <b>Joinery</b>")});
    });
    m_stage.takePicture(QStringLiteral("three-contacts"));
}

void Journey::makeCategory(const QString &name, const QString &color)
{
    m_stage.click(m_stage.control<QPushButton>(QStringLiteral("addCategory")));
    auto *field = m_stage.control<QLineEdit>(QStringLiteral("categoryName"));
    field->setFocus();
    field->selectAll();
    m_stage.type(name);
    m_stage.press(Qt::Key_Tab);
    m_stage.press(Qt::Key_Space);
    m_stage.await(QStringLiteral("the colour panel comes"), [] {
        const QColorDialog *panel = DesktopColorPanel::shared().dialog();
        return panel && panel->isVisible();
    });
    DesktopColorPanel::shared().dialog()->setCurrentColor(QColor(color));
}

void Journey::chooseCategories()
{
    m_stage.step(QStringLiteral("Categories are made and coloured"));
    m_stage.press(Qt::Key_K, Qt::ControlModifier);
    m_stage.await(QStringLiteral("the sheet of categories comes"), [this] {
        return m_stage.control<QWidget>(QStringLiteral("myCategoryTableView")) != nullptr;
    });
    makeCategory(QStringLiteral("Family"), QStringLiteral("#c0392b"));
    m_stage.takePicture(QStringLiteral("colour-panel"));
    DesktopColorPanel::shared().dialog()->close();
    makeCategory(QStringLiteral("Work"), QStringLiteral("#2e86ab"));
    DesktopColorPanel::shared().dialog()->close();
    m_stage.takePicture(QStringLiteral("categories-sheet"));
    m_stage.click(m_stage.control<QPushButton>(QStringLiteral("done")));
    m_stage.await(QStringLiteral("the sheet goes"), [this] { return !m_stage.sheet(); });

    m_stage.step(QStringLiteral("Contacts get a category"));
    selectRow(0);
    auto *popUp = m_stage.control<QComboBox>(QStringLiteral("category"));
    popUp->setFocus();
    m_stage.press(Qt::Key_Down);
    m_stage.await(QStringLiteral("the pop-up shows the category"),
                  [&] { return popUp->currentText() == u"Family"; });
    selectRow(1);
    popUp->setFocus();
    m_stage.press(Qt::Key_End);
    m_stage.takePicture(QStringLiteral("categories"));
}

void Journey::changeCaptions()
{
    m_stage.step(QStringLiteral("A caption is changed, and its field opens"));
    m_stage.window()->findChild<QAction *>(QStringLiteral("editLabelsItem"))->trigger();
    m_stage.await(QStringLiteral("the sheet of captions comes"),
                  [this] { return m_stage.control<QWidget>(QStringLiteral("mobileCaption")) != nullptr; });
    auto *caption = m_stage.control<QLineEdit>(QStringLiteral("mobileCaption"));
    caption->setFocus();
    caption->selectAll();
    m_stage.type(QStringLiteral("Mobile:"));
    m_stage.press(Qt::Key_Tab);
    m_stage.press(Qt::Key_Space);
    m_stage.takePicture(QStringLiteral("captions-sheet"));
    m_stage.click(m_stage.control<QPushButton>(QStringLiteral("done")));
    m_stage.await(QStringLiteral("the sheet goes"), [this] { return !m_stage.sheet(); });
    m_stage.takePicture(QStringLiteral("caption-changed"));
}

void Journey::printContact()
{
    m_stage.step(QStringLiteral("A contact is printed"));
    selectRow(0);
    m_stage.press(Qt::Key_P, Qt::ControlModifier);
    m_stage.await(QStringLiteral("the print dialog comes"),
                  [this] { return qobject_cast<QPrintDialog *>(m_stage.sheet()) != nullptr; });
    m_stage.takePicture(QStringLiteral("print-dialog"));
    m_stage.press(Qt::Key_Escape);
    m_stage.await(QStringLiteral("the dialog goes"), [this] { return !m_stage.sheet(); });
    m_stage.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    m_stage.await(QStringLiteral("the page setup comes"),
                  [this] { return qobject_cast<QPageSetupDialog *>(m_stage.sheet()) != nullptr; });
    m_stage.takePicture(QStringLiteral("page-setup"));
    m_stage.press(Qt::Key_Escape);
    m_stage.await(QStringLiteral("the dialog goes"), [this] { return !m_stage.sheet(); });
    CardPrinter &cardPrinter = m_stage.windowController()->cardPrinter();
    cardPrinter.printer().setOutputFormat(QPrinter::PdfFormat);
    const QString card = QFileInfo(m_file).path() + QStringLiteral("/Contact.pdf");
    cardPrinter.printer().setOutputFileName(card);
    cardPrinter.print();
    m_stage.await(QStringLiteral("the file of the print is there"),
                  [&] { return QFileInfo(card).size() > 0; });
}

void Journey::readContacts()
{
    m_stage.step(QStringLiteral("The contacts are read"));
    for (int row = 0; row < 3; ++row) {
        selectRow(row);
        if (row == 0)
            m_stage.press(Qt::Key_F2);
        m_stage.await(QStringLiteral("the detail is in view mode"),
                      [&] { return m_stage.document()->selectedView() == MyDocument::ViewMode; });
        m_stage.takePicture(QStringLiteral("contact-%1").arg(row + 1));
    }
}

void Journey::resizeWindow()
{
    m_stage.step(QStringLiteral("The window is made narrow and wide"));
    const QSize usual = m_stage.window()->size();
    const struct
    {
        QSize size;
        QString name;
    } sizes[] = {{m_stage.window()->minimumSize(), QStringLiteral("narrow")},
                 {QSize(1270, 860), QStringLiteral("wide")}};
    for (const auto &shown : sizes) {
        m_stage.window()->resize(shown.size);
        m_stage.takePicture(shown.name + QStringLiteral("-view"));
        m_stage.press(Qt::Key_F2);
        m_stage.takePicture(shown.name + QStringLiteral("-edit"));
        m_stage.press(Qt::Key_F2);
    }
    m_stage.window()->resize(usual);
}

void Journey::filterContacts()
{
    m_stage.step(QStringLiteral("Contacts are searched for and shown by category"));
    const auto expectNames = [this](const QStringList &names) {
        m_stage.await(QStringLiteral("the list shows ") + names.join(u", "),
                      [&] { return namesInList() == names; });
    };
    m_stage.press(Qt::Key_F, Qt::ControlModifier);
    m_stage.type(QStringLiteral("blue GLAZE"));
    expectNames({QStringLiteral("Zoë Åström")});
    m_stage.takePicture(QStringLiteral("found"));
    auto *popUp = m_stage.control<QComboBox>(QStringLiteral("myActionPopup"));
    popUp->setFocus();
    m_stage.press(Qt::Key_Space);
    m_stage.takePicture(QStringLiteral("categories-to-show"));
    m_stage.press(Qt::Key_End);
    m_stage.press(Qt::Key_Return);
    expectNames({});
    m_stage.takePicture(QStringLiteral("nothing-found"));
    m_stage.press(Qt::Key_F, Qt::ControlModifier);
    m_stage.press(Qt::Key_Escape);
    expectNames({QStringLiteral("Борис Кант")});
    m_stage.takePicture(QStringLiteral("one-category"));
    m_stage.click(m_stage.control<QPushButton>(QStringLiteral("showAllButton")));
    m_stage.await(QStringLiteral("all contacts are shown again"), [&] { return namesInList().size() == 3; });
}

void Journey::duplicateAndUndo()
{
    m_stage.step(QStringLiteral("A contact is copied"));
    selectRow(0);
    m_stage.press(Qt::Key_D, Qt::ControlModifier);
    m_stage.await(QStringLiteral("the copy stands behind the contact"), [&] {
        return namesInList().mid(0, 2) ==
               QStringList({QStringLiteral("Zoë Åström"), QStringLiteral("Zoë Åström")});
    });
    m_stage.takePicture(QStringLiteral("copied"));
    m_stage.press(Qt::Key_Z, Qt::ControlModifier);
    m_stage.await(QStringLiteral("the copy is gone"), [&] { return namesInList().size() == 3; });
}

void Journey::saveAndQuit()
{
    m_stage.step(QStringLiteral("The document is saved"));
    m_stage.press(Qt::Key_S, Qt::ControlModifier);
    if (!m_stage.await(QStringLiteral("the save panel comes"), [this] {
            return qobject_cast<QFileDialog *>(m_stage.sheet()) && m_stage.sheet()->isActiveWindow();
        }))
        return;
    m_stage.press(Qt::Key_A, Qt::ControlModifier);
    m_stage.type(QFileInfo(m_file).path() + u'/' + QFileInfo(m_file).completeBaseName());
    m_stage.takePicture(QStringLiteral("save-panel"));
    m_stage.press(Qt::Key_Return);
    m_stage.await(QStringLiteral("the file is written, with the suffix of documents"),
                  [this] { return QFileInfo::exists(m_file) && !m_stage.document()->isDocumentEdited(); });
    m_stage.takePicture(QStringLiteral("saved"));
    m_stage.step(QStringLiteral("The application quits"));
    m_stage.press(Qt::Key_Q, Qt::ControlModifier);
}

void Journey::unlock()
{
    m_stage.step(QStringLiteral("The document is opened again: it is locked"));
    m_stage.await(QStringLiteral("the locked window comes"),
                  [this] { return m_stage.window() && m_stage.window()->isActiveWindow(); });
    m_stage.takePicture(QStringLiteral("locked"));
    m_stage.type(QStringLiteral("wrong horse"));
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(QStringLiteral("Wrong Password"), QStringLiteral("OK"),
                        QStringLiteral("wrong-password"));
    m_stage.await(QStringLiteral("the document stays locked"),
                  [&] { return m_stage.document()->isEncrypted(); });
    m_stage.await(QStringLiteral("the password field is ready for another try"), [] {
        const auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return field && field->objectName() == u"passwordToDecryptField";
    });
    m_stage.type(password);
    m_stage.click(m_stage.control<QPushButton>(QStringLiteral("openButton")));
    m_stage.await(QStringLiteral("the document opens"), [this] { return m_stage.document()->isDecrypted(); });
}

void Journey::checkContent()
{
    m_stage.step(QStringLiteral("Everything is back"));
    m_stage.await(QStringLiteral("the names are back"), [&] {
        return namesInList() == QStringList({QStringLiteral("Zoë Åström"), QStringLiteral("Борис Кант"),
                                             QStringLiteral("Anders & Sons <b>Joinery</b>")});
    });
    const auto &records = m_stage.document()->myArrayController()->arrangedObjects();
    const auto text = [&records](std::size_t row, QStringView keyPath) {
        return row < records.size() ? records[row]->valueForKeyPath(keyPath).stringValue() : QString();
    };
    m_stage.await(QStringLiteral("the address is back"),
                  [&] { return text(0, u"emailWork") == u"zoe@fjordceramics.example"; });
    m_stage.await(QStringLiteral("the first category is back"),
                  [&] { return text(0, u"categoryPtr.cat_category") == u"Family"; });
    m_stage.await(QStringLiteral("the second category is back"),
                  [&] { return text(1, u"categoryPtr.cat_category") == u"Work"; });
    selectRow(0);
    m_stage.takePicture(QStringLiteral("opened-again"));
    m_stage.click(toolButton(m_stage.window(), QStringLiteral("Edit")));
    m_stage.await(QStringLiteral("the detail is in edit mode"),
                  [&] { return m_stage.document()->selectedView() == MyDocument::EditMode; });
    m_stage.takePicture(QStringLiteral("edit-mode"));
}

void Journey::lockAndUnlock()
{
    m_stage.step(QStringLiteral("The document is locked and opened again"));
    m_stage.press(Qt::Key_L, Qt::ControlModifier);
    m_stage.answerAlert(QStringLiteral("Lock Document back to the crypted state?"), QStringLiteral("OK"),
                        QStringLiteral("lock-question"));
    m_stage.await(QStringLiteral("the document is locked"), [this] {
        const auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return m_stage.document()->isEncrypted() && field && m_stage.window()->isActiveWindow();
    });
    m_stage.takePicture(QStringLiteral("locked-again"));
    m_stage.type(password);
    m_stage.press(Qt::Key_Return);
    m_stage.await(QStringLiteral("the document opens"), [this] { return m_stage.document()->isDecrypted(); });
}

void Journey::changePassword()
{
    m_stage.step(QStringLiteral("The password is changed"));
    m_stage.window()->findChild<QAction *>(QStringLiteral("passwordItem"))->trigger();
    m_stage.await(QStringLiteral("the sheet comes"), [this] {
        const auto *field = m_stage.control<QLineEdit>(QStringLiteral("previousPassword"));
        return field && field->window()->isActiveWindow();
    });
    const QString changed = QStringLiteral("battery staple");
    for (const QString &text : {password, changed, changed}) {
        m_stage.type(text);
        m_stage.press(Qt::Key_Tab);
    }
    m_stage.takePicture(QStringLiteral("change-password"));
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(QStringLiteral("Password changed successfuly"), QStringLiteral("OK"),
                        QStringLiteral("password-changed"));
    m_stage.await(QStringLiteral("the new password is taken"),
                  [&] { return m_stage.document()->plainPassword() == changed; });
    m_stage.press(Qt::Key_F2);
}

void Journey::deleteAndUndo()
{
    m_stage.step(QStringLiteral("A contact is deleted and brought back"));
    selectRow(1);
    m_stage.press(Qt::Key_Delete);
    m_stage.answerAlert(QStringLiteral("Delete the selected contact"), QStringLiteral("Delete Contact"),
                        QStringLiteral("delete-question"));
    m_stage.await(QStringLiteral("the contact is gone"), [this] { return namesInList().size() == 2; });
    m_stage.press(Qt::Key_Z, Qt::ControlModifier);
    m_stage.await(QStringLiteral("the contact is back"),
                  [this] { return namesInList().contains(QStringLiteral("Борис Кант")); });
    m_stage.takePicture(QStringLiteral("delete-undone"));
}

void Journey::editSeveral()
{
    m_stage.step(QStringLiteral("Several contacts are edited at once"));
    m_stage.control<QWidget>(QStringLiteral("myTableView"))->setFocus();
    m_stage.press(Qt::Key_A, Qt::ControlModifier);
    auto *fax = m_stage.control<QLineEdit>(QStringLiteral("faxWork"));
    fax->setFocus();
    m_stage.type(QStringLiteral("+47 22 00 00 00"));
    for (const auto &record : m_stage.document()->myArrayController()->arrangedObjects())
        m_stage.await(QStringLiteral("every selected contact has the number"),
                      [&] { return record->value(RecordKey::faxWork).stringValue() == u"+47 22 00 00 00"; });
    m_stage.takePicture(QStringLiteral("several-selected"));
    m_stage.press(Qt::Key_F2);
    m_stage.await(QStringLiteral("the detail is in view mode again"),
                  [&] { return m_stage.document()->selectedView() == MyDocument::ViewMode; });
    m_stage.takePicture(QStringLiteral("several-selected-view"));
}

void Journey::closeWithQuestion()
{
    m_stage.step(QStringLiteral("The edited document is closed"));
    m_stage.press(Qt::Key_W, Qt::ControlModifier);
    const QString name = QFileInfo(m_file).fileName();
    m_stage.answerAlert(QStringLiteral("Do you want to save the changes to the document “%1”?").arg(name),
                        QStringLiteral("Discard"), QStringLiteral("save-question"));
}

QStringList Journey::namesInList() const
{
    QStringList names;
    for (const auto &record : m_stage.document()->myArrayController()->arrangedObjects())
        names.append(displayedNameOfRecord(*record));
    return names;
}

void Journey::selectRow(int row)
{
    auto *table = m_stage.control<RecordTable>(QStringLiteral("myTableView"));
    table->setFocus();
    m_stage.press(Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        m_stage.press(Qt::Key_Down);
}
