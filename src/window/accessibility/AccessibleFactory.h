#pragma once

// Installs the application's own accessible classes and its filter of events. Once, with a QApplication.
//
// Line edits and number fields get an AccessibleField. Item views get an AccessibleTable in place of the
// toolkit's own class, those in the toolkit's dialogs and pop-ups included. Other scroll areas become plain
// widgets, since the toolkit's class reads beyond its list of children when it is asked for one that is not
// there. An Announcer becomes a notification. Everything else keeps the toolkit's class.
void installAccessibility();
