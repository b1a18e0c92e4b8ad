#pragma once

#include <QMainWindow>

// The window of a document on the screen. Never closes by itself: it only tells that the user wants it
// closed.
class DocumentMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

Q_SIGNALS:
    void becameKey();
    void closeRequested();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
};
