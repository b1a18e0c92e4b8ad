#pragma once

// Installs the accessible classes of the application and the AccessibilityEventFilter. Must be called once,
// after the QApplication was made.
//
// Line edits and number fields get an AccessibleField. Item views get an AccessibleTable, also those in
// dialogs and pop-ups of the toolkit. Other scroll areas become plain widgets, because the class of the
// toolkit reads beyond its list of children when it is asked for a child that does not exist. An Announcer
// becomes a notification. All other widgets keep the class of the toolkit.
void installAccessibility();
