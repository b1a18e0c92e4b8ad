#pragma once

#include "window/application/Application.h"

#include <QDir>
#include <QLineEdit>

// Acts as the user of a running application: finds windows and controls, sends key and mouse events to the
// windows, checks the results, and takes a picture of the whole screen after each step.
class Stage
{
public:
    static constexpr int Patience = 60000; // in milliseconds, enough for a slow and busy machine

    // The pictures are stored in the folder. The application may be replaced between two acts.
    explicit Stage(const QDir &folder)
        : m_folder(folder)
    {
    }

    void setApplication(Application *application) { m_application = application; }
    int failures() const { return m_failures; }

    // Prints the heading of the following steps.
    void step(const QString &heading);
    // Prints and counts a failure if the condition is false.
    bool expect(bool holds, const QString &what);
    // Runs the application until the condition holds. If it does not hold within Patience, this is a failure.
    // After a failure nothing is waited for any more.
    bool await(const QString &what, const std::function<bool()> &condition);
    void takePicture(const QString &name);

    DocumentMainWindow *window() const;
    MyDocument *document() const;
    DocumentWindowController *windowController() const;
    // The open sheet, alert or panel of the window; null without one.
    QDialog *sheet() const;
    template <class Control>
    Control *control(const QString &name) const
    {
        QWidget *owner = sheet() ? static_cast<QWidget *>(sheet()) : window();
        return owner ? owner->findChild<Control *>(name) : nullptr;
    }

    // Waits for an alert with that message, takes a picture, and presses the button with that title.
    void answerAlert(const QString &message, const QString &button, const QString &picture);
    // These wait until the window is active, because earlier keys would be lost.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Types into the focused widget. Letters without a key are sent as by an input method.
    void type(const QString &text);
    void click(QWidget *control);

private:
    QWindow *activeWindowHandle();

    QDir m_folder;
    Application *m_application = nullptr;
    int m_pictures = 0;
    int m_failures = 0;
};
