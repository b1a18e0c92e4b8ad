#pragma once

#include "platform/Services.h"

#include <QDialog>

class QPushButton;

// A dialog that shows an alert. Its result is the code of the pressed button. Return presses the first
// button. Escape and closing the dialog give `Alert::closingReturn()`. The desktop determines the order of
// the buttons by their roles. Texts are shown as plain text.
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AlertDialog(const Foundation::Alert &alert, QWidget *parent = nullptr);

    void reject() override { done(m_escapeCode); }

private:
    QWidget *newTexts(const Foundation::Alert &alert);
    QWidget *newButtons(const QList<Foundation::AlertButton> &buttons);

    QPushButton *m_defaultButton = nullptr;
    int m_escapeCode;
};

// Shows alerts that belong to no document window.
class ModalAlerts : public Foundation::ModalAlertPresenter
{
public:
    int runModal(const Foundation::Alert &alert) override;
};
