#pragma once

class QAccessibleEvent;

// Decides which accessibility events leave the process.
//
// - Text events of a password field, and of any other field that does not show its text, are dropped, because
//   the toolkit sends the real characters.
// - Text events of widgets that are not on the screen are dropped, because the fields of a locked document
// are
//   emptied after it was locked.
// - Item views send Focus events for their current index even when another control has the focus. These are
//   dropped. If the view has the focus, an event for the cell from AccessibleTable::focusChild() is sent in
//   its place, so that screen readers say the row.
//
// All other events pass unchanged.
namespace AccessibilityEventFilter
{

// Installs the filter in place of the current update handler.
void install();

} // namespace AccessibilityEventFilter
