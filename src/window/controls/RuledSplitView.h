#pragma once

#include "helpers/views/VLVSplitViewDelegate.h"
#include "platform/SplitView.h"

#include <QSplitter>

#include <array>

// Two panes side by side whose sizes a rule sets: who takes a change of the width, and how far the divider
// goes. The panes' own minimum and maximum widths follow the rule.
class RuledSplitView : public QSplitter, public Foundation::SplitView
{
    Q_OBJECT

public:
    explicit RuledSplitView(QWidget *parent = nullptr);

    // What the left pane begins with: now, or when the view is shown for the first time.
    void setLeftWidth(int width);
    // Looked at whenever the view is shown or gets another size.
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
    int m_leftWidth = 0; // of a view that was never shown
    // The widths as the rule has set them, of which whole points are shown: halves must not get lost on the
    // way from one width of the window to the next.
    std::array<double, 2> m_exactWidths = {};
};
