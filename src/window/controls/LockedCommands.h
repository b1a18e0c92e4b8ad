#pragma once

#include <QString>

// Whether a menu or tool-bar item with that action may be used over a locked document. Every other item is
// disabled there, whatever its responder answers, so that a forgotten one stays shut.
bool mayBeUsedWhileLocked(const QString &action);
