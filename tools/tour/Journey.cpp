#include "Journey.h"

#include "window/desktop/DesktopColorPanel.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPageSetupDialog>
#include <QPrintDialog>

namespace
{

const QString password = u"correct horse"_qs;

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
    m_stage.expect(m_stage.sheetComes(VLCryptoDoc::MandatoryPasswordSheet),
                   u"the sheet for the first password comes"_qs);
    m_stage.fillIn({first, second});
}

void Journey::giveFirstPassword()
{
    m_stage.step(u"A new document asks for a master password"_qs);
    enterPasswords(u"correct horse"_qs, u"correct house"_qs);
    m_stage.takePicture(u"new-document"_qs);
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(u"Password inserted in the two fields doesn't match"_qs, u"Retry"_qs,
                        u"passwords-differ"_qs);
    enterPasswords(u"short"_qs, u"short"_qs);
    m_stage.takePicture(u"retry"_qs);
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(u"Password too short"_qs, u"Retry"_qs, u"password-too-short"_qs);
    enterPasswords(password, password);
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(u"Password accepted"_qs, u"OK"_qs, u"password-accepted"_qs);
    m_stage.await(u"the password is taken"_qs,
                  [&] { return m_stage.document()->plainPassword() == password; });
    m_stage.takePicture(u"empty-document"_qs);
}

// The fields in the order of the Tab key.
void Journey::addContact(const QStringList &fields)
{
    m_stage.await(u"the form is ready for typing"_qs, [] {
        const auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return field && field->objectName() == u"firstName" && field->hasSelectedText();
    });
    m_stage.fillIn(fields);
}

void Journey::addContacts()
{
    m_stage.step(u"Three contacts are typed"_qs);
    const QString skip;
    m_stage.click(m_stage.toolButton(u"Add"_qs));
    m_stage.takePicture(u"first-contact-added"_qs);
    addContact({u"Zoë"_qs, u"Åström"_qs, u"Fjord Ceramics"_qs, skip, skip, u"+47 22 90 11 40"_qs, skip, skip,
                u"zoe@fjordceramics.example"_qs, u"fjordceramics.example"_qs, u"Havnegata 12"_qs, skip,
                u"+47 900 12 345"_qs, skip, u"zoe.a@post.example"_qs, skip, skip,
                u"Birthday 4 May. Prefers letters; bring the blue glaze samples in autumn."_qs});
    m_stage.press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    addContact({u"Борис"_qs, u"Кант"_qs, skip, skip, skip, skip, skip, skip, skip, skip, skip,
                u"+7 495 000 00 00"_qs});
    m_stage.press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    addContact({u"Anna"_qs, u"Quell"_qs, u"Anders & Sons <b>Joinery</b>"_qs});
    auto *isCompany = m_stage.control<QWidget>("isCompany");
    isCompany->setFocus();
    m_stage.press(Qt::Key_Space);
    m_stage.await(u"the list shows the three names"_qs, [&] {
        return m_stage.names() ==
               QStringList({u"Zoë Åström"_qs, u"Борис Кант"_qs, u"Anders & Sons <b>Joinery</b>"_qs});
    });
    m_stage.takePicture(u"three-contacts"_qs);
}

void Journey::makeCategory(const QString &name, const QString &color)
{
    m_stage.click(m_stage.control<QPushButton>("addCategory"));
    m_stage.enterField("categoryName", name);
    m_stage.press(Qt::Key_Tab);
    m_stage.press(Qt::Key_Space);
    m_stage.await(u"the colour panel comes"_qs, [] {
        const QColorDialog *panel = DesktopColorPanel::shared().dialog();
        return panel && panel->isVisible();
    });
    DesktopColorPanel::shared().dialog()->setCurrentColor(QColor(color));
}

void Journey::chooseCategories()
{
    m_stage.step(u"Categories are made and coloured"_qs);
    m_stage.press(Qt::Key_K, Qt::ControlModifier);
    m_stage.await(u"the sheet of categories comes"_qs,
                  [this] { return m_stage.control<QWidget>("myCategoryTableView") != nullptr; });
    makeCategory(u"Family"_qs, u"#c0392b"_qs);
    m_stage.takePicture(u"colour-panel"_qs);
    DesktopColorPanel::shared().dialog()->close();
    makeCategory(u"Work"_qs, u"#2e86ab"_qs);
    DesktopColorPanel::shared().dialog()->close();
    m_stage.takePicture(u"categories-sheet"_qs);
    m_stage.click(m_stage.control<QPushButton>("done"));
    m_stage.await(u"the sheet goes"_qs, [this] { return !m_stage.sheet(); });

    m_stage.step(u"Contacts get a category"_qs);
    m_stage.selectRow(0);
    auto *popUp = m_stage.control<QComboBox>("category");
    popUp->setFocus();
    m_stage.press(Qt::Key_Down);
    m_stage.await(u"the pop-up shows the category"_qs, [&] { return popUp->currentText() == u"Family"; });
    m_stage.selectRow(1);
    popUp->setFocus();
    m_stage.press(Qt::Key_End);
    m_stage.takePicture(u"categories"_qs);
}

void Journey::changeCaptions()
{
    m_stage.step(u"A caption is changed, and its field opens"_qs);
    m_stage.item("editLabelsItem")->trigger();
    m_stage.await(u"the sheet of captions comes"_qs,
                  [this] { return m_stage.control<QWidget>("mobileCaption") != nullptr; });
    m_stage.enterField("mobileCaption", u"Mobile:"_qs);
    m_stage.press(Qt::Key_Tab);
    m_stage.press(Qt::Key_Space);
    m_stage.takePicture(u"captions-sheet"_qs);
    m_stage.click(m_stage.control<QPushButton>("done"));
    m_stage.await(u"the sheet goes"_qs, [this] { return !m_stage.sheet(); });
    m_stage.takePicture(u"caption-changed"_qs);
}

void Journey::printContact()
{
    m_stage.step(u"A contact is printed"_qs);
    m_stage.selectRow(0);
    m_stage.press(Qt::Key_P, Qt::ControlModifier);
    m_stage.await(u"the print dialog comes"_qs,
                  [this] { return qobject_cast<QPrintDialog *>(m_stage.sheet()) != nullptr; });
    m_stage.takePicture(u"print-dialog"_qs);
    m_stage.press(Qt::Key_Escape);
    m_stage.await(u"the dialog goes"_qs, [this] { return !m_stage.sheet(); });
    m_stage.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    m_stage.await(u"the page setup comes"_qs,
                  [this] { return qobject_cast<QPageSetupDialog *>(m_stage.sheet()) != nullptr; });
    m_stage.takePicture(u"page-setup"_qs);
    m_stage.press(Qt::Key_Escape);
    m_stage.await(u"the dialog goes"_qs, [this] { return !m_stage.sheet(); });
    CardPrinter &cardPrinter = m_stage.controller()->cardPrinter();
    cardPrinter.printer().setOutputFormat(QPrinter::PdfFormat);
    const QString card = QFileInfo(m_file).path() + u"/Contact.pdf"_qs;
    cardPrinter.printer().setOutputFileName(card);
    cardPrinter.print();
    m_stage.await(u"the file of the print is there"_qs, [&] { return QFileInfo(card).size() > 0; });
}

void Journey::readContacts()
{
    m_stage.step(u"The contacts are read"_qs);
    for (int row = 0; row < 3; ++row) {
        m_stage.selectRow(row);
        if (row == 0)
            m_stage.press(Qt::Key_F2);
        m_stage.await(u"the detail is in view mode"_qs,
                      [&] { return m_stage.document()->selectedView() == MyDocument::ViewMode; });
        m_stage.takePicture(u"contact-%1"_qs.arg(row + 1));
    }
}

void Journey::resizeWindow()
{
    m_stage.step(u"The window is made narrow and wide"_qs);
    const QSize usual = m_stage.window()->size();
    const struct
    {
        QSize size;
        QString name;
    } sizes[] = {{m_stage.window()->minimumSize(), u"narrow"_qs}, {QSize(1270, 860), u"wide"_qs}};
    for (const auto &shown : sizes) {
        m_stage.window()->resize(shown.size);
        m_stage.takePicture(shown.name + u"-view"_qs);
        m_stage.press(Qt::Key_F2);
        m_stage.takePicture(shown.name + u"-edit"_qs);
        m_stage.press(Qt::Key_F2);
    }
    m_stage.window()->resize(usual);
}

void Journey::filterContacts()
{
    m_stage.step(u"Contacts are searched for and shown by category"_qs);
    const auto expectNames = [this](const QStringList &names) {
        m_stage.await(u"the list shows "_qs + names.join(u", "), [&] { return m_stage.names() == names; });
    };
    m_stage.press(Qt::Key_F, Qt::ControlModifier);
    m_stage.type(u"blue GLAZE"_qs);
    expectNames({u"Zoë Åström"_qs});
    m_stage.takePicture(u"found"_qs);
    auto *popUp = m_stage.control<QComboBox>("myActionPopup");
    popUp->setFocus();
    m_stage.press(Qt::Key_Space);
    m_stage.takePicture(u"categories-to-show"_qs);
    m_stage.press(Qt::Key_End);
    m_stage.press(Qt::Key_Return);
    expectNames({});
    m_stage.takePicture(u"nothing-found"_qs);
    m_stage.press(Qt::Key_F, Qt::ControlModifier);
    m_stage.press(Qt::Key_Escape);
    expectNames({u"Борис Кант"_qs});
    m_stage.takePicture(u"one-category"_qs);
    m_stage.click(m_stage.control<QPushButton>("showAllButton"));
    m_stage.await(u"all contacts are shown again"_qs, [&] { return m_stage.names().size() == 3; });
}

void Journey::duplicateAndUndo()
{
    m_stage.step(u"A contact is copied"_qs);
    m_stage.selectRow(0);
    m_stage.press(Qt::Key_D, Qt::ControlModifier);
    m_stage.await(u"the copy stands behind the contact"_qs, [&] {
        return m_stage.names().mid(0, 2) == QStringList({u"Zoë Åström"_qs, u"Zoë Åström"_qs});
    });
    m_stage.takePicture(u"copied"_qs);
    m_stage.press(Qt::Key_Z, Qt::ControlModifier);
    m_stage.await(u"the copy is gone"_qs, [&] { return m_stage.names().size() == 3; });
}

void Journey::saveAndQuit()
{
    m_stage.step(u"The document is saved"_qs);
    m_stage.press(Qt::Key_S, Qt::ControlModifier);
    if (!m_stage.await(u"the save panel comes"_qs, [this] {
            return qobject_cast<QFileDialog *>(m_stage.sheet()) && m_stage.sheet()->isActiveWindow();
        }))
        return;
    m_stage.press(Qt::Key_A, Qt::ControlModifier);
    m_stage.type(QFileInfo(m_file).path() + u'/' + QFileInfo(m_file).completeBaseName());
    m_stage.takePicture(u"save-panel"_qs);
    m_stage.press(Qt::Key_Return);
    m_stage.await(u"the file is written, with the suffix of documents"_qs,
                  [this] { return QFileInfo::exists(m_file) && !m_stage.document()->isDocumentEdited(); });
    m_stage.takePicture(u"saved"_qs);
    m_stage.step(u"The application quits"_qs);
    m_stage.press(Qt::Key_Q, Qt::ControlModifier);
}

void Journey::unlock()
{
    m_stage.step(u"The document is opened again: it is locked"_qs);
    m_stage.await(u"the locked window comes"_qs,
                  [this] { return m_stage.window() && m_stage.window()->isActiveWindow(); });
    m_stage.takePicture(u"locked"_qs);
    m_stage.type(u"wrong horse"_qs);
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(u"Wrong Password"_qs, u"OK"_qs, u"wrong-password"_qs);
    m_stage.await(u"the document stays locked"_qs, [&] { return m_stage.document()->isEncrypted(); });
    m_stage.await(u"the password field is ready for another try"_qs, [] {
        const auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return field && field->objectName() == u"passwordToDecryptField";
    });
    m_stage.type(password);
    m_stage.click(m_stage.control<QPushButton>("openButton"));
    m_stage.await(u"the document opens"_qs, [this] { return m_stage.document()->isDecrypted(); });
}

void Journey::checkContent()
{
    m_stage.step(u"Everything is back"_qs);
    m_stage.await(u"the names are back"_qs, [&] {
        return m_stage.names() ==
               QStringList({u"Zoë Åström"_qs, u"Борис Кант"_qs, u"Anders & Sons <b>Joinery</b>"_qs});
    });
    const auto &records = m_stage.document()->myArrayController()->arrangedObjects();
    const auto text = [&records](std::size_t row, QStringView keyPath) {
        return row < records.size() ? records[row]->valueForKeyPath(keyPath).stringValue() : QString();
    };
    m_stage.await(u"the address is back"_qs,
                  [&] { return text(0, u"emailWork") == u"zoe@fjordceramics.example"; });
    m_stage.await(u"the first category is back"_qs,
                  [&] { return text(0, u"categoryPtr.cat_category") == u"Family"; });
    m_stage.await(u"the second category is back"_qs,
                  [&] { return text(1, u"categoryPtr.cat_category") == u"Work"; });
    m_stage.selectRow(0);
    m_stage.takePicture(u"opened-again"_qs);
    m_stage.click(m_stage.toolButton(u"Edit"_qs));
    m_stage.await(u"the detail is in edit mode"_qs,
                  [&] { return m_stage.document()->selectedView() == MyDocument::EditMode; });
    m_stage.takePicture(u"edit-mode"_qs);
}

void Journey::lockAndUnlock()
{
    m_stage.step(u"The document is locked and opened again"_qs);
    m_stage.press(Qt::Key_L, Qt::ControlModifier);
    m_stage.answerAlert(u"Lock Document back to the crypted state?"_qs, u"OK"_qs, u"lock-question"_qs);
    m_stage.await(u"the document is locked"_qs, [this] {
        const auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        return m_stage.document()->isEncrypted() && field && m_stage.window()->isActiveWindow();
    });
    m_stage.takePicture(u"locked-again"_qs);
    m_stage.type(password);
    m_stage.press(Qt::Key_Return);
    m_stage.await(u"the document opens"_qs, [this] { return m_stage.document()->isDecrypted(); });
}

void Journey::changePassword()
{
    m_stage.step(u"The password is changed"_qs);
    m_stage.item("passwordItem")->trigger();
    m_stage.await(u"the sheet comes"_qs, [this] {
        const auto *field = m_stage.control<QLineEdit>("previousPassword");
        return field && field->window()->isActiveWindow();
    });
    const QString changed = u"battery staple"_qs;
    m_stage.fillIn({password, changed, changed});
    m_stage.takePicture(u"change-password"_qs);
    m_stage.press(Qt::Key_Return);
    m_stage.answerAlert(u"Password changed successfuly"_qs, u"OK"_qs, u"password-changed"_qs);
    m_stage.await(u"the new password is taken"_qs,
                  [&] { return m_stage.document()->plainPassword() == changed; });
    m_stage.press(Qt::Key_F2);
}

void Journey::deleteAndUndo()
{
    m_stage.step(u"A contact is deleted and brought back"_qs);
    m_stage.selectRow(1);
    m_stage.press(Qt::Key_Delete);
    m_stage.answerAlert(u"Delete the selected contact"_qs, u"Delete Contact"_qs, u"delete-question"_qs);
    m_stage.await(u"the contact is gone"_qs, [this] { return m_stage.names().size() == 2; });
    m_stage.press(Qt::Key_Z, Qt::ControlModifier);
    m_stage.await(u"the contact is back"_qs, [this] { return m_stage.names().contains(u"Борис Кант"_qs); });
    m_stage.takePicture(u"delete-undone"_qs);
}

void Journey::editSeveral()
{
    m_stage.step(u"Several contacts are edited at once"_qs);
    m_stage.control<QWidget>("myTableView")->setFocus();
    m_stage.press(Qt::Key_A, Qt::ControlModifier);
    auto *fax = m_stage.control<QLineEdit>("faxWork");
    fax->setFocus();
    m_stage.type(u"+47 22 00 00 00"_qs);
    for (const auto &record : m_stage.document()->myArrayController()->arrangedObjects())
        m_stage.await(u"every selected contact has the number"_qs,
                      [&] { return record->value(RecordKey::faxWork).stringValue() == u"+47 22 00 00 00"; });
    m_stage.takePicture(u"several-selected"_qs);
    m_stage.press(Qt::Key_F2);
    m_stage.await(u"the detail is in view mode again"_qs,
                  [&] { return m_stage.document()->selectedView() == MyDocument::ViewMode; });
    m_stage.takePicture(u"several-selected-view"_qs);
}

void Journey::closeWithQuestion()
{
    m_stage.step(u"The edited document is closed"_qs);
    m_stage.press(Qt::Key_W, Qt::ControlModifier);
    const QString name = QFileInfo(m_file).fileName();
    m_stage.answerAlert(u"Do you want to save the changes to the document “%1”?"_qs.arg(name), u"Discard"_qs,
                        u"save-question"_qs);
}
