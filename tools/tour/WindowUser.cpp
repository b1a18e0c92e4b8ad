#include "tour/WindowUser.h"

#include "window/list/RecordTable.h"
#include "window/list/RecordTableModel.h"

#include <QInputMethodEvent>

bool WindowUser::eventually(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, Patience);
}

void WindowUser::runEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

MyDocument *WindowUser::document() const
{
    const auto &documents = m_application->documentController().documents();
    return documents.isEmpty() ? nullptr : static_cast<MyDocument *>(documents.last());
}

QToolButton *WindowUser::toolButton(const QString &title) const
{
    for (QToolButton *button : window()->findChildren<QToolButton *>()) {
        if (button->text() == title)
            return button;
    }
    return nullptr;
}

QStringList WindowUser::names() const
{
    QStringList names;
    const auto *model = window()->findChild<RecordTable *>(u"myTableView"_qs)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        names.append(model->index(row, RecordTableModel::NameColumn).data().toString());
    return names;
}

QStringList WindowUser::nextAlert() const
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

bool WindowUser::sheetComes(const QString &name) const
{
    return eventually([&] { return sheet() && sheet()->objectName() == name && sheet()->isActiveWindow(); });
}

bool WindowUser::windowIsActive() const
{
    return eventually([this] {
        if (!window() || sheet())
            return false;
        // What a window manager does when a dialog goes.
        window()->activateWindow();
        return window()->isActiveWindow();
    });
}

void WindowUser::press(int key, Qt::KeyboardModifiers modifiers) const
{
    awaitActiveWindow();
    if (QWidget *owner = front())
        QTest::keyClick(owner->windowHandle(), Qt::Key(key), modifiers);
    runEvents();
}

void WindowUser::type(const QString &text) const
{
    awaitActiveWindow();
    if (!expect(QGuiApplication::focusObject(), u"something has the focus to type into"_qs))
        return;
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
    runEvents();
}

void WindowUser::click(QWidget *control) const
{
    if (!expect(control && control->isVisible() && control->isEnabled(), u"the control can be clicked"_qs))
        return;
    QWidget *owner = control->window();
    QTest::mouseClick(owner->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      control->mapTo(owner, control->rect().center()));
    runEvents();
}

void WindowUser::answer(const QString &title) const
{
    if (!expect(sheet(), u"an alert or a sheet stands on the window"_qs))
        return;
    for (QPushButton *button : sheet()->findChildren<QPushButton *>()) {
        if (titleWithoutMnemonic(button->text()) == title)
            return click(button);
    }
    expect(false, u"there is a button “%1”"_qs.arg(title));
}

void WindowUser::dismiss(int key) const
{
    press(key);
    expect(windowIsActive(), u"the window is without a sheet"_qs);
}

void WindowUser::dismiss(const QString &button) const
{
    answer(button);
    expect(windowIsActive(), u"the window is without a sheet"_qs);
}

void WindowUser::fillIn(const QStringList &texts) const
{
    for (const QString &text : texts) {
        if (!text.isNull()) {
            press(Qt::Key_A, Qt::ControlModifier);
            type(text);
        }
        press(Qt::Key_Tab);
    }
}

void WindowUser::enterField(const char *name, const QString &text) const
{
    auto *field = control<QLineEdit>(name);
    field->setFocus();
    field->selectAll();
    type(text);
}

void WindowUser::selectRow(int row) const
{
    control<RecordTable>("myTableView")->setFocus();
    press(Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        press(Qt::Key_Down);
}

void WindowUser::makeNewDocument() const
{
    m_application->documentController().newDocument();
    expect(sheetComes(VLCryptoDoc::MandatoryPasswordSheet), u"the sheet for the first password comes"_qs);
}

void WindowUser::enterFirstPasswords(const QString &first, const QString &second) const
{
    if (!expect(sheetComes(VLCryptoDoc::MandatoryPasswordSheet),
                u"the sheet for the first password comes"_qs))
        return;
    fillIn({first, second});
    press(Qt::Key_Return);
}

void WindowUser::makeProtectedDocument(const QString &password) const
{
    makeNewDocument();
    enterFirstPasswords(password, password);
    expect(nextAlert().value(0) == u"Password accepted"_qs, u"the password is accepted"_qs);
    dismiss(Qt::Key_Return);
}

void WindowUser::unlock(const QString &text) const
{
    type(text);
    press(Qt::Key_Return);
}

void WindowUser::addContact(const QString &firstName, const QString &lastName) const
{
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    if (!expect(QApplication::focusWidget() == control<QLineEdit>("firstName"),
                u"the first name has the focus"_qs))
        return;
    type(firstName);
    press(Qt::Key_Tab);
    press(Qt::Key_A, Qt::ControlModifier);
    type(lastName);
}
