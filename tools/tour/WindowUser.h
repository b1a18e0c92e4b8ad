#pragma once

#include "window/application/Application.h"

// Headers that nearly all users of this class need.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

// Uses a running application like a person: by keys and buttons, and by the texts that the windows show. The
// tour and the window tests share these functions; each reports failures in its own way.
class WindowUser
{
public:
    static constexpr int Patience = 60000; // in milliseconds, enough for a slow and busy machine

    virtual ~WindowUser() = default;

    // Reports the failure `what` if `holds` is false. Returns `holds`.
    virtual bool expect(bool holds, const QString &what) const = 0;
    // Processes events until the condition holds. Returns false if it does not hold within Patience.
    static bool eventually(const std::function<bool()> &condition);
    static void runEvents();

    // The newest document and its window; null if there is none.
    MyDocument *document() const;
    DocumentWindowController *controller() const { return m_application->windowOf(document()); }
    DocumentMainWindow *window() const { return controller() ? controller()->mainWindow() : nullptr; }
    // The open sheet, alert or panel of the window; null without one.
    QDialog *sheet() const { return qobject_cast<QDialog *>(QApplication::activeModalWidget()); }
    // The sheet, or the window if there is none.
    QWidget *front() const { return sheet() ? static_cast<QWidget *>(sheet()) : window(); }
    // A control of the sheet, or of the window if there is no sheet.
    template <class Control>
    Control *control(const char *name) const
    {
        return front()->findChild<Control *>(QString::fromLatin1(name));
    }
    // An item in a menu of the window.
    QAction *item(const char *name) const { return window()->findChild<QAction *>(QLatin1String(name)); }
    // The button with that title, or null.
    QToolButton *toolButton(const QString &title) const;
    // The text of a field.
    QString field(const char *name) const { return control<QLineEdit>(name)->text(); }
    // The names in the list, from top to bottom.
    QStringList names() const;
    // Waits for an alert and returns its texts, the message first. Empty if none opens.
    QStringList nextAlert() const;
    bool sheetComes(const QString &name) const;
    // Waits until the window has no sheet and is active.
    bool windowIsActive() const;

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    // Types into the focused widget.
    void type(const QString &text) const;
    void click(QWidget *control) const;
    // Clicks a button of the sheet.
    void answer(const QString &button) const;
    // The same, and waits until the window has no sheet.
    void dismiss(int key) const;
    void dismiss(const QString &button) const;
    // Types each text into a field in place of its content, beginning with the focused field. A null text
    // skips its field.
    void fillIn(const QStringList &texts) const;
    void enterField(const char *name, const QString &text) const;
    void selectRow(int row) const;

    // Makes a new document and waits for its password sheet.
    void makeNewDocument() const;
    void enterFirstPasswords(const QString &first, const QString &second) const;
    // Makes a new document with its password.
    void makeProtectedDocument(const QString &password) const;
    void unlock(const QString &text) const;
    // Uses only the keyboard.
    void addContact(const QString &firstName, const QString &lastName) const;

protected:
    void setApplication(Application *application) { m_application = application; }
    // With a window manager, waits until the window is active.
    virtual void awaitActiveWindow() const {}

private:
    Application *m_application = nullptr;
};
