#pragma once

#include "platform/ScrollView.h"

#include <QtGlobal>

// Keeps the vertical position of one scroll view equal to that of another, one way: two views that are to
// follow each other need one of these each. The horizontal position stays its own.
class SynchroScrollView
{
public:
    // Not owned; outlives this.
    explicit SynchroScrollView(Foundation::ScrollView &view)
        : m_view(view)
    {
    }
    ~SynchroScrollView() { stopSynchronizing(); }
    Q_DISABLE_COPY_MOVE(SynchroScrollView)

    // In place of the one followed so far. Not owned; to be given up before it goes.
    void setSynchronizedScrollView(Foundation::ScrollView *view);
    Foundation::ScrollView *synchronizedScrollView() const { return m_synchronized; }
    void stopSynchronizing();
    // The views count in opposite directions.
    bool reverseScroll() const { return m_reverseScroll; }

    void synchronizedViewContentBoundsDidChange();

private:
    Foundation::ScrollView &m_view;
    Foundation::ScrollView *m_synchronized = nullptr;
    bool m_reverseScroll = false;
};
