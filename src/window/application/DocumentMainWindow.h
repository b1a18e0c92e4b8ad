#pragma once

#include <QMainWindow>

// The window of a document on the screen. It never closes by itself, but sends closeRequested() when the user
// wants to close it. If it is clicked while it has a sheet, the sheet keeps the keyboard.
class DocumentMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

    // Activates the window, or its sheet if there is one.
    void takeKeyboard();

Q_SIGNALS:
    void becameKey();
    void closeRequested();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
};
