#pragma once

#include "platform/ScrollView.h"

#include <QtGlobal>

// Keeps the vertical position of one scroll view equal to that of another, in one direction: two views that
// follow each other need one object each. The horizontal position is not changed.
class SynchroScrollView
{
public:
    // `view` is not owned and must outlive this object.
    explicit SynchroScrollView(Foundation::ScrollView &view)
        : m_view(view)
    {
    }
    ~SynchroScrollView() { stopSynchronizing(); }
    Q_DISABLE_COPY_MOVE(SynchroScrollView)

    // Follows `view` instead of the former one; null for none. Not owned: call this with null, or
    // stopSynchronizing(), before the followed view is destroyed.
    void setSynchronizedScrollView(Foundation::ScrollView *view);
    Foundation::ScrollView *synchronizedScrollView() const { return m_synchronized; }
    void stopSynchronizing();
    // True if the two views have opposite y axes. Prescribed; no caller yet.
    bool reverseScroll() const { return m_reverseScroll; }

    void synchronizedViewContentBoundsDidChange();

private:
    Foundation::ScrollView &m_view;
    Foundation::ScrollView *m_synchronized = nullptr;
    bool m_reverseScroll = false;
};
