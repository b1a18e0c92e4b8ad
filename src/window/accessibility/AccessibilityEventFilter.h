#pragma once

class QAccessibleEvent;

// Decides which accessibility events leave the process.
//
// - Text events of a password field, and of any other field that does not show its text, are dropped: the
// toolkit sends
//   the real characters.
// - Text events of widgets that are not on the screen are dropped: the fields of a locked document are
// emptied after it
//   has been locked.
// - An item view sends Focus events for its current index although another control has the focus. These are
// dropped.
//   One that has the focus sends the Focus event of the cell that AccessibleTable::focusChild() gives, in
//   place of its own: screen readers then say the row.
//
// Everything else goes on unchanged.
namespace AccessibilityEventFilter
{

// Replaces an update handler that is installed.
void install();

} // namespace AccessibilityEventFilter
