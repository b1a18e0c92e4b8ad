#pragma once

#include "helpers/views/VLVSplitViewDelegate.h"
#include "platform/SplitView.h"

#include <QSplitter>

#include <array>

// Two panes side by side. A VLVSplitViewDelegate decides which pane takes a change of the width, and sets the
// minimum and maximum widths of the panes.
class RuledSplitView : public QSplitter, public Foundation::SplitView
{
    Q_OBJECT

public:
    explicit RuledSplitView(QWidget *parent = nullptr);

    // Sets the width of the left pane in points, now or when the view is shown for the first time.
    void setLeftWidth(int width);
    // The rule. Changes take effect when the view is shown or resized.
    VLVSplitViewDelegate &mySplitViewDelegate() { return m_delegate; }

    Foundation::Rect frame() const override;
    Foundation::Rect frameOfSubview(int index) const override;
    void setFrameOfSubview(int index, const Foundation::Rect &frame) override;
    bool isSubviewCollapsed(int index) const override;
    double dividerThickness() const override { return handleWidth(); }
    void setPositionOfDivider(double position, int dividerIndex) override;
    void adjustSubviews() override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void followRules();

    VLVSplitViewDelegate m_delegate;
    int m_leftWidth = 0; // for the first time that the view is shown
    // The widths that the rule set. The widgets have whole points only, and without the fractions a window
    // that is resized point by point would give all of the change to one pane.
    std::array<double, 2> m_exactWidths = {};
};
