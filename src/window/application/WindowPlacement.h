#pragma once

#include "values/Geometry.h"

#include <QList>
#include <QRect>

// Where windows stand. Documents keep frames with the lower left corner of the primary screen as origin; the
// desktop counts from its upper left corner down. A frame's place is that of the window with its decoration,
// its size that of the content: the desktop tells the two only so before and after it has decorated a window.

QRect screenRectOfFrame(const Foundation::Rect &frame, const QRect &primaryScreen);
Foundation::Rect frameOfScreenRect(const QRect &rect, const QRect &primaryScreen);

// Any frame can stand in a file: made without a window (0 by 0), on a screen that is gone, damaged. Gives the
// rectangle itself if the user can take hold of its title bar, otherwise one moved wholly onto a screen; at
// least `minimum` in size, and above that no larger than the screen. An empty one gets the `usual` size.
// `decoration` is the height of the title bar.
QRect reachableRect(QRect wanted, QSize minimum, QSize usual, int decoration,
                    const QList<QRect> &availableScreens);
