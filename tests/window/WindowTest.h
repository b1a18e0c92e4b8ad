#pragma once

#include "core/RecordModel.h"
#include "support/Files.h"
#include "support/Printers.h"
#include "window/application/Application.h"

#include <gtest/gtest.h>

// What nearly every one of these tests looks at.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

// A running application that a test uses as a person would: by keys and buttons, looking at what the windows
// show.
class WindowTest : public testing::Test
{
protected:
    static const QString password;

    static constexpr int Patience = 60000; // in milliseconds; for a slow machine with a lot else to do

    // Lets events run until the condition holds; false if it does not within Patience.
    static bool eventually(const std::function<bool()> &condition);
    static void runEvents();

    MyDocument *document() const;
    DocumentWindowController *controller() const { return application.windowOf(document()); }
    DocumentMainWindow *window() const { return controller() ? controller()->mainWindow() : nullptr; }
    // What stands on the window, null without a sheet.
    QDialog *sheet() const { return qobject_cast<QDialog *>(QApplication::activeModalWidget()); }
    // Of the sheet, and without one of the window.
    template <class Control>
    Control *control(const char *name) const
    {
        QWidget *owner = sheet() ? static_cast<QWidget *>(sheet()) : window();
        return owner->findChild<Control *>(QString::fromLatin1(name));
    }
    // The texts of the alert that comes next, message first. Empty if none comes.
    QStringList nextAlert() const;
    bool sheetComes(const QString &name) const;
    // Waits for the window to be without a sheet and active.
    bool windowIsActive() const;

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    // Into what has the focus.
    void type(const QString &text) const;
    // Presses the button of the sheet and lets it go.
    void answer(const QString &button) const;

    // The same, and waits for the window to be without a sheet.
    void dismiss(int key) const;
    void dismiss(const QString &button) const;

    // A new document whose password sheet has come.
    void makeNewDocument();
    void enterFirstPasswords(const QString &first, const QString &second) const;
    // A new document that has taken its password.
    void makeProtectedDocument();
    QString pathOf(const QString &name) const { return folder.filePath(name); }
    // Of the list, from top to bottom.
    QStringList names() const;
    // With the keys alone.
    void addContact(const QString &firstName, const QString &lastName) const;
    // The next save goes to that path without a panel.
    void chooseNextPath(const QString &path);
    // By the key, into that file of the folder; a document with a file keeps it.
    void saveTo(const QString &name);
    // Of a menu of the window.
    QAction *item(const char *name) const { return window()->findChild<QAction *>(QLatin1String(name)); }
    // Types each text over what stands in a field, from the field with the focus on.
    void fillIn(const QStringList &texts) const;
    bool isClosed() const
    {
        return eventually([this] { return document() == nullptr; });
    }
    void openDocument(const QString &path);
    void unlock(const QString &text);
    // Both the text of a field of the form.
    QString field(const char *name) const { return control<QLineEdit>(name)->text(); }
    void enterField(const char *name, const QString &text) const;

    QTemporaryDir folder;
    Application application;
    QStringList suggestedPaths;
};
