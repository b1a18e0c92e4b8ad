#pragma once

#include "values/Geometry.h"

#include <QList>
#include <QRect>

// Computes positions of windows. In documents, the origin is the lower left corner of the primary screen and
// y grows upward; on the desktop it is the upper left corner and y grows downward. The position of a frame is
// that of the window with its decoration, and the size that of the content, because the desktop provides only
// these both before and after it decorated a window.

QRect screenRectOfFrame(const Foundation::Rect &frame, const QRect &primaryScreen);
Foundation::Rect frameOfScreenRect(const QRect &rect, const QRect &primaryScreen);

// A file may contain any frame: one of a document without a window (0 by 0), on a screen that no longer
// exists, or a damaged one. Returns the rectangle unchanged if the user can reach its title bar, otherwise
// moved completely onto a screen. An empty rectangle gets the size `usual`. The size is at least `minimum`,
// and otherwise at most that of the screen. `decoration` is the height of the title bar.
QRect reachableRect(QRect wanted, QSize minimum, QSize usual, int decoration,
                    const QList<QRect> &availableScreens);
