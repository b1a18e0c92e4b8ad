#pragma once

#include "lists/ArrayController.h"
#include "platform/Actions.h"
#include "window/list/CategoryPill.h"

#include <QWidget>

// The label of the selected record's category beside the record, as wide as its name where there is room.
// Draws nothing without a selection. Its context menu copies the category that an old file gave the record.
class CategoryView : public QWidget
{
    Q_OBJECT

public:
    explicit CategoryView(QWidget *parent = nullptr);

    // Not owned; outlives the view.
    void setMyArrayController(Foundation::ArrayController *records);

    // Puts the text of the record's own key "category" on the clipboard; without one the clipboard keeps what
    // it has.
    Q_INVOKABLE void CopyInClipboard(const Foundation::ActionSender &sender);

    // As on the screen, with the painter's origin as the upper left corner.
    void draw(QPainter &painter) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Another record is selected, or its category looks different.
    void refresh();

protected:
    void paintEvent(QPaintEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    // Null without a selection.
    Foundation::Ref<Foundation::Dictionary> selectedRecord() const;

    std::optional<CategoryPill> selectedPill() const;

    Foundation::ArrayController *myArrayController = nullptr;
};
