#include "window/controls/InterfaceStyle.h"

#include "window/controls/TextLabel.h"
#include "window/desktop/SymbolIcon.h"

#include <QAbstractButton>
#include <QAction>

void styleInterface(QWidget *interface)
{
    for (QWidget *control : interface->findChildren<QWidget *>()) {
        const QVariant scale = control->property("fontScale");
        if (!scale.isValid())
            continue;
        QFont font = control->font();
        font.setPointSizeF(QFontInfo(font).pointSizeF() * scale.toDouble());
        control->setFont(font);
    }
    for (QAbstractButton *button : interface->findChildren<QAbstractButton *>()) {
        if (!button->property("looksLikeLink").toBool())
            continue;
        QPalette colors = button->palette();
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
            colors.setColor(group, QPalette::ButtonText, linkColor(colors));
        button->setPalette(colors);
        // Buttons do not update their size when their font changes.
        constexpr int RoomBesideText = 12;
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + RoomBesideText);
    }
    for (QAction *item : interface->findChildren<QAction *>()) {
        const QString symbol = item->property("symbol").toString();
        if (!symbol.isEmpty())
            item->setIcon(symbolIcon(symbol));
    }
}
