#pragma once

#include "platform/Services.h"

#include <QDialog>

class QPushButton;

// An alert as a dialog. Its result is the code of the button pressed. The first button answers the Return
// key; the one named Cancel, or without such a one the last, answers Escape and the closing of the dialog.
// Where the buttons stand follows the desktop. All text is shown as it is: no mark-up is read.
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AlertDialog(const Foundation::Alert &alert, QWidget *parent = nullptr);

    void reject() override { done(m_escapeCode); }

private:
    QWidget *newTexts(const Foundation::Alert &alert);
    QWidget *newButtons(const QStringList &titles);

    QPushButton *m_defaultButton = nullptr;
    int m_escapeCode = 0;
};

// Shows alerts that belong to no window.
class ModalAlerts : public Foundation::ModalAlertPresenter
{
public:
    int runModal(const Foundation::Alert &alert) override;
};
