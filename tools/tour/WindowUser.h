#pragma once

#include "window/application/Application.h"

// What nearly everyone who uses the windows looks at.
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

// Uses a running application as a person would: by keys and buttons, looking at what the windows show. These
// verbs are shared by the tour and the tests of windows; each of them says in its own way what is not as it
// should be.
class WindowUser
{
public:
    static constexpr int Patience = 60000; // in milliseconds; for a slow machine with a lot else to do

    virtual ~WindowUser() = default;

    // Reports `what` unless it holds. Returns `holds`.
    virtual bool expect(bool holds, const QString &what) const = 0;
    // Lets events run until the condition holds; false if it does not within Patience.
    static bool eventually(const std::function<bool()> &condition);
    static void runEvents();

    // The newest one, and its window; null without one.
    MyDocument *document() const;
    DocumentWindowController *controller() const { return m_application->windowOf(document()); }
    DocumentMainWindow *window() const { return controller() ? controller()->mainWindow() : nullptr; }
    // The sheet, alert or panel that stands on the window; null without one.
    QDialog *sheet() const { return qobject_cast<QDialog *>(QApplication::activeModalWidget()); }
    // The sheet, or the window without one.
    QWidget *front() const { return sheet() ? static_cast<QWidget *>(sheet()) : window(); }
    // Of the sheet, and without one of the window.
    template <class Control>
    Control *control(const char *name) const
    {
        return front()->findChild<Control *>(QString::fromLatin1(name));
    }
    // Of a menu of the window.
    QAction *item(const char *name) const { return window()->findChild<QAction *>(QLatin1String(name)); }
    // Null without a button of that title.
    QToolButton *toolButton(const QString &title) const;
    // The text of a field.
    QString field(const char *name) const { return control<QLineEdit>(name)->text(); }
    // Of the list, from top to bottom.
    QStringList names() const;
    // The texts of the alert that comes next, message first. Empty if none comes.
    QStringList nextAlert() const;
    bool sheetComes(const QString &name) const;
    // Waits for the window to be without a sheet and active.
    bool windowIsActive() const;

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    // Into what has the focus.
    void type(const QString &text) const;
    void click(QWidget *control) const;
    // Presses the button of the sheet and lets it go.
    void answer(const QString &button) const;
    // The same, and waits for the window to be without a sheet.
    void dismiss(int key) const;
    void dismiss(const QString &button) const;
    // Types each text over what stands in a field, from the field with the focus on. A null text leaves its
    // field.
    void fillIn(const QStringList &texts) const;
    void enterField(const char *name, const QString &text) const;
    void selectRow(int row) const;

    // A new document whose password sheet has come.
    void makeNewDocument() const;
    void enterFirstPasswords(const QString &first, const QString &second) const;
    // A new document that has taken its password.
    void makeProtectedDocument(const QString &password) const;
    void unlock(const QString &text) const;
    // With the keys alone.
    void addContact(const QString &firstName, const QString &lastName) const;

protected:
    void setApplication(Application *application) { m_application = application; }
    // Where a window manager decides which window gets the keys, waits for the one in front to get them.
    virtual void awaitActiveWindow() const {}

private:
    Application *m_application = nullptr;
};
