#pragma once

#include <QString>

// Whether a menu or tool-bar item with that action may be used while the document is locked. All other items
// are then disabled, independent of their responder, so that a forgotten item is disabled.
bool mayBeUsedWhileLocked(const QString &action);
