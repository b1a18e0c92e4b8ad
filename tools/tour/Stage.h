#pragma once

#include "tour/WindowUser.h"

#include <QDir>

// Acts as the user of a running application on a screen, checks the results, and takes a picture of the whole
// screen after each step.
class Stage : public WindowUser
{
public:
    // The pictures are stored in the folder. The application may be replaced between two acts.
    explicit Stage(const QDir &folder)
        : m_folder(folder)
    {
    }

    using WindowUser::setApplication;
    int failures() const { return m_failures; }

    // Prints the heading of the following steps.
    void step(const QString &heading);
    // Prints and counts a failure if the condition is false.
    bool expect(bool holds, const QString &what) const override;
    // Runs the application until the condition holds. If it does not hold within Patience, this is a failure.
    // After a failure nothing is waited for any more.
    bool await(const QString &what, const std::function<bool()> &condition) const;
    void takePicture(const QString &name);
    // Waits for an alert with that message, takes a picture, and presses the button with that title.
    void answerAlert(const QString &message, const QString &button, const QString &picture);

private:
    // Keys that are sent earlier would be lost.
    void awaitActiveWindow() const override;

    QDir m_folder;
    int m_pictures = 0;
    mutable int m_failures = 0;
};
