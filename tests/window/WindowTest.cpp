#include "window/WindowTest.h"

#include "window/list/RecordTable.h"
#include "window/list/RecordTableModel.h"

#include <QInputMethodEvent>

const QString WindowTest::password = u"correct horse"_qs;

bool WindowTest::eventually(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, Patience);
}

void WindowTest::runEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

MyDocument *WindowTest::document() const
{
    const auto &documents = const_cast<Application &>(application).documentController().documents();
    return documents.isEmpty() ? nullptr : static_cast<MyDocument *>(documents.last());
}

QStringList WindowTest::nextAlert() const
{
    QStringList texts;
    eventually([this] { return qobject_cast<AlertDialog *>(sheet()) != nullptr; });
    if (sheet()) {
        for (const QLabel *label : sheet()->findChildren<QLabel *>()) {
            if (!label->text().isEmpty())
                texts.append(label->text());
        }
    }
    return texts;
}

bool WindowTest::sheetComes(const QString &name) const
{
    return eventually([&] { return sheet() && sheet()->objectName() == name && sheet()->isActiveWindow(); });
}

bool WindowTest::windowIsActive() const
{
    return eventually([this] {
        if (!window() || sheet())
            return false;
        // What a window manager does when a dialog goes.
        window()->activateWindow();
        return window()->isActiveWindow();
    });
}

void WindowTest::press(int key, Qt::KeyboardModifiers modifiers) const
{
    QWidget *owner = sheet() ? static_cast<QWidget *>(sheet()) : window();
    QTest::keyClick(owner->windowHandle(), Qt::Key(key), modifiers);
    runEvents();
}

void WindowTest::type(const QString &text) const
{
    ASSERT_TRUE(QGuiApplication::focusObject());
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
    runEvents();
}

void WindowTest::answer(const QString &title) const
{
    ASSERT_TRUE(sheet());
    for (QPushButton *button : sheet()->findChildren<QPushButton *>()) {
        if (titleWithoutMnemonic(button->text()) == title) {
            QTest::mouseClick(button, Qt::LeftButton);
            runEvents();
            return;
        }
    }
    FAIL() << "no button " << title.toStdString();
}

void WindowTest::dismiss(int key) const
{
    press(key);
    EXPECT_TRUE(windowIsActive());
}

void WindowTest::dismiss(const QString &button) const
{
    answer(button);
    EXPECT_TRUE(windowIsActive());
}

void WindowTest::makeNewDocument()
{
    application.documentController().newDocument();
    ASSERT_TRUE(sheetComes(VLCryptoDoc::MandatoryPasswordSheet));
}

void WindowTest::enterFirstPasswords(const QString &first, const QString &second) const
{
    ASSERT_TRUE(sheetComes(VLCryptoDoc::MandatoryPasswordSheet));
    fillIn({first, second});
    press(Qt::Key_Return);
}

void WindowTest::makeProtectedDocument()
{
    makeNewDocument();
    enterFirstPasswords(password, password);
    ASSERT_EQ(nextAlert().value(0), u"Password accepted"_qs);
    dismiss(Qt::Key_Return);
}

QStringList WindowTest::names() const
{
    QStringList names;
    const auto *model = control<RecordTable>("myTableView")->model();
    for (int row = 0; row < model->rowCount(); ++row)
        names.append(model->index(row, RecordTableModel::NameColumn).data().toString());
    return names;
}

void WindowTest::addContact(const QString &firstName, const QString &lastName) const
{
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(QApplication::focusWidget(), control<QLineEdit>("firstName"));
    type(firstName);
    press(Qt::Key_Tab);
    press(Qt::Key_A, Qt::ControlModifier);
    type(lastName);
}

void WindowTest::chooseNextPath(const QString &path)
{
    controller()->savePanel().setPathChooser([this, path](const QString &suggested, const auto &chosen) {
        suggestedPaths.append(suggested);
        chosen(path);
    });
}

void WindowTest::saveTo(const QString &name)
{
    chooseNextPath(pathOf(name));
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_FALSE(document()->isDocumentEdited());
}

void WindowTest::fillIn(const QStringList &texts) const
{
    for (const QString &text : texts) {
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Tab);
    }
}

void WindowTest::openDocument(const QString &path)
{
    ASSERT_TRUE(application.documentController().openDocument(path));
    ASSERT_TRUE(windowIsActive());
}

void WindowTest::unlock(const QString &text)
{
    type(text);
    press(Qt::Key_Return);
}

void WindowTest::enterField(const char *name, const QString &text) const
{
    auto *field = control<QLineEdit>(name);
    field->setFocus();
    field->selectAll();
    type(text);
}
