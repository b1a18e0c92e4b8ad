#include "window/sheets/AlertDialog.h"

#include "window/controls/ActionDispatcher.h"
#include "window/controls/SafeText.h"
#include "window/controls/ShownPart.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using Foundation::Alert;
using Foundation::AlertButton;

namespace
{

constexpr int TextWidth = 400;

QLabel *newTextLabel(const QString &text)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(withoutReorderingCharacters(shownLine(text)));
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFixedWidth(TextWidth);
    return label;
}

QDialogButtonBox::ButtonRole boxRole(AlertButton::Role role)
{
    switch (role) {
    case AlertButton::Cancel:
        return QDialogButtonBox::RejectRole;
    case AlertButton::Discard:
        return QDialogButtonBox::DestructiveRole;
    case AlertButton::Confirm:
        break;
    }
    return QDialogButtonBox::AcceptRole;
}

} // namespace

AlertDialog::AlertDialog(const Alert &alert, QWidget *parent)
    : QDialog(parent)
    , m_escapeCode(alert.closingReturn())
{
    setWindowTitle(QApplication::applicationDisplayName());
    const auto pixmap = alert.style == Alert::Style::Warning ? QStyle::SP_MessageBoxWarning
                                                             : QStyle::SP_MessageBoxInformation;
    auto *icon = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(
        style()->standardIcon(pixmap, nullptr, this).pixmap(QSize(size, size), devicePixelRatioF()));

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(18, 18, 18, 14);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(18);
    layout->addWidget(icon, 0, 0, Qt::AlignTop);
    layout->addWidget(newTexts(alert), 0, 1);
    layout->addWidget(newButtons(alert.buttons), 1, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    // Set at the end, because the button box changes both while buttons are added.
    if (m_defaultButton) {
        m_defaultButton->setDefault(true);
        m_defaultButton->setFocus();
    }
}

QWidget *AlertDialog::newTexts(const Alert &alert)
{
    auto *texts = new QWidget;
    auto *layout = new QVBoxLayout(texts);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    QLabel *message = newTextLabel(alert.message);
    QFont bold = message->font();
    bold.setBold(true);
    message->setFont(bold);
    layout->addWidget(message);
    if (!alert.informativeText.isEmpty())
        layout->addWidget(newTextLabel(alert.informativeText));
    layout->addStretch();
    // Screen readers say these texts when the alert opens.
    setAccessibleName(shownLine(alert.message));
    setAccessibleDescription(shownLine(alert.informativeText));
    return texts;
}

QWidget *AlertDialog::newButtons(const QList<AlertButton> &buttons)
{
    auto *box = new QDialogButtonBox;
    for (qsizetype i = 0; i < buttons.size(); ++i) {
        const int code = Alert::FirstButtonReturn + int(i);
        QPushButton *button = box->addButton(titleOfText(buttons[i].title), boxRole(buttons[i].role));
        connect(button, &QPushButton::clicked, this, [this, code] { done(code); });
        if (i == 0)
            m_defaultButton = button;
    }
    return box;
}

int ModalAlerts::runModal(const Alert &alert)
{
    // The parent is the document window and not a sheet, because a sheet may be ended and would delete the
    // alert.
    QWidget *window = QApplication::activeWindow();
    while (qobject_cast<QDialog *>(window) && window->parentWidget())
        window = window->parentWidget()->window();
    const QPointer<AlertDialog> dialog = new AlertDialog(alert, window);
    const int code = dialog->exec();
    delete dialog.data(); // null if its window was destroyed
    return code;
}
