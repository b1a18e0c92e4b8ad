#include "window/list/CategoryView.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"
#include "window/list/VLLabelDrawer.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>

using Foundation::ActionSender;
using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::TextAttributes;

namespace
{

constexpr int LabelHeight = 20; // for the default font with 13 points
constexpr int NarrowestLabel = 44;
constexpr int WidestLabel = 280;

TextAttributes attributesOfLabel(const CategoryPill &pill)
{
    constexpr double SystemFontSize = 13.0;
    return {QString(), SystemFontSize, pill.text};
}

} // namespace

CategoryView::CategoryView(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void CategoryView::setMyArrayController(Foundation::ArrayController *records)
{
    myArrayController = records;
    connect(records, &Foundation::ArrayController::objectsChanged, this,
            [this](const std::vector<std::size_t> &indexes) {
                if (std::binary_search(indexes.begin(), indexes.end(),
                                       std::size_t(myArrayController->selectionIndex())))
                    refresh();
            });
    refresh();
}

Ref<Dictionary> CategoryView::selectedRecord() const
{
    if (!myArrayController || !myArrayController->canRemove())
        return nullptr;
    return myArrayController->arrangedObjects()[std::size_t(myArrayController->selectionIndex())];
}

std::optional<CategoryPill> CategoryView::selectedPill() const
{
    const auto record = selectedRecord();
    return record ? CategoryPill::ofRecord(*record) : std::nullopt;
}

void CategoryView::refresh()
{
    const auto pill = selectedPill();
    setAccessibleName(pill ? tr("Category %1").arg(pill->name) : QString());
    updateGeometry();
    update();
}

QSize CategoryView::sizeHint() const
{
    const auto pill = selectedPill();
    const int height = qMax(LabelHeight, fontMetrics().height() + 4);
    if (!pill)
        return {NarrowestLabel, height};
    const int width = VLLabelDrawer::widthForString(pill->name, attributesOfLabel(*pill), height);
    return {qBound(NarrowestLabel, width, WidestLabel), height};
}

QSize CategoryView::minimumSizeHint() const
{
    return {NarrowestLabel, sizeHint().height()};
}

void CategoryView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    draw(painter);
}

void CategoryView::draw(QPainter &painter) const
{
    const auto pill = selectedPill();
    if (!pill)
        return;
    VLLabelDrawer::drawString(painter, pill->name, attributesOfLabel(*pill), width(), height(), pill->back,
                              pill->text);
}

void CategoryView::CopyInClipboard(const ActionSender &)
{
    const auto record = selectedRecord();
    const QString category = record ? Foundation::displayText(record->value(RecordKey::category)) : QString();
    if (!category.isNull())
        QGuiApplication::clipboard()->setText(category);
}

void CategoryView::contextMenuEvent(QContextMenuEvent *event)
{
    const auto record = selectedRecord();
    QMenu menu(this);
    QAction *copy = menu.addAction(tr("&Copy Category"));
    copy->setEnabled(record && record->contains(RecordKey::category));
    if (menu.exec(event->globalPos()) == copy)
        CopyInClipboard({});
}
