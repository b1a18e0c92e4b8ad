#pragma once

#include <QMainWindow>

// The window of a document on the screen. Never closes by itself: it only tells that the user wants it
// closed. A click on it while a sheet stands leaves the keyboard with the sheet.
class DocumentMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

    // Makes the window, or the sheet that stands on it, the active one.
    void takeKeyboard();

Q_SIGNALS:
    void becameKey();
    void closeRequested();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
};
