#include "window/controls/LockedCommands.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::array allowed = {
    // Commands of the application and the window.
    u"newDocument",
    u"openDocument",
    u"performClose",
    u"terminate",
    // Commands on text, for the password field. The document refuses undo and redo.
    u"undo",
    u"redo",
    u"cut",
    u"copy",
    u"paste",
    u"selectAll",
    // Required: enabled, although it does nothing while the document is locked.
    u"duplicateRow",
};

} // namespace

bool mayBeUsedWhileLocked(const QString &action)
{
    return std::ranges::any_of(allowed, [&](const char16_t *name) { return action == name; });
}
