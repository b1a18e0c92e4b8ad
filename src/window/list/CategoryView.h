#pragma once

#include "lists/ArrayController.h"
#include "platform/Actions.h"
#include "window/list/CategoryPill.h"

#include <QWidget>

// Shows the label of the category of the selected record. It is as wide as the name, if there is space.
// Paints nothing without a selection. Its context menu copies the text that an old release stored in the
// record as its category.
class CategoryView : public QWidget
{
    Q_OBJECT

public:
    explicit CategoryView(QWidget *parent = nullptr);

    // `records` is not owned and must outlive the view.
    void setMyArrayController(Foundation::ArrayController *records);

    // Copies the text under the key "category" of the record to the clipboard. Without such a text, the
    // clipboard is not changed.
    Q_INVOKABLE void CopyInClipboard(const Foundation::ActionSender &sender);

    // Paints the label as on the screen. The origin of the painter is its upper left corner.
    void draw(QPainter &painter) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Must be called when another record is selected or its category has changed.
    void refresh();

protected:
    void paintEvent(QPaintEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    // The first selected record; null without a selection.
    Foundation::Ref<Foundation::Dictionary> selectedRecord() const;

    std::optional<CategoryPill> selectedPill() const;

    Foundation::ArrayController *myArrayController = nullptr;
};
