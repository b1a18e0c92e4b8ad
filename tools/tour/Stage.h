#pragma once

#include "window/application/Application.h"

#include <QDir>
#include <QLineEdit>

// Plays the user of a running application: finds windows and controls, presses keys and buttons by events on
// the windows themselves, looks at what comes, and takes a picture of the whole screen after each step.
class Stage
{
public:
    static constexpr int Patience = 60000; // in milliseconds; for a slow machine with a lot else to do

    // Pictures go into the folder. The application may be replaced between two acts.
    explicit Stage(const QDir &folder)
        : m_folder(folder)
    {
    }

    void setApplication(Application *application) { m_application = application; }
    int failures() const { return m_failures; }

    // Prints the heading of what comes next.
    void step(const QString &heading);
    // Prints and counts what is not as it should be.
    bool expect(bool holds, const QString &what);
    // Lets the application run until the condition holds. If it does not within Patience, that is a failure,
    // and what comes after a failure is not waited for any more.
    bool await(const QString &what, const std::function<bool()> &condition);
    void takePicture(const QString &name);

    DocumentMainWindow *window() const;
    MyDocument *document() const;
    DocumentWindowController *windowController() const;
    // The sheet, alert or panel that stands on the window; null without one.
    QDialog *sheet() const;
    template <class Control>
    Control *control(const QString &name) const
    {
        QWidget *owner = sheet() ? static_cast<QWidget *>(sheet()) : window();
        return owner ? owner->findChild<Control *>(name) : nullptr;
    }

    // Waits for an alert with that message, takes its picture, and answers it with the button of that title.
    void answerAlert(const QString &message, const QString &button, const QString &picture);
    // These wait until the window manager has made the window active: keys before that are lost.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Types into what has the focus; letters that no key has come as from an input method.
    void type(const QString &text);
    void click(QWidget *control);

private:
    QWindow *activeWindowHandle();

    QDir m_folder;
    Application *m_application = nullptr;
    int m_pictures = 0;
    int m_failures = 0;
};
