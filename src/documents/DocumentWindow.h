#pragma once

#include "platform/Alert.h"
#include "values/Geometry.h"

#include <QString>

#include <functional>

namespace Foundation
{

// The window of a document as the logic sees it. Implemented by the window layer and by scripts in tests.
//
// Sheets and alerts belong to the window and block only it; every call returns at once. Sheets are named as
// in the interface file. What ends a sheet or answers an alert is called on a later turn of the event loop,
// after the sheet has gone. One sheet or alert stands at a time; another waits until it has gone.
//
// Nothing is called after close(), and a document closes its window before it goes. So what is given to these
// operations may capture the document as it is. Every other lambda that outlives the call that made it
// captures a QPointer, or belongs to a member that cancels it.
//
// Over a locked document nothing is shown but alerts that may stand there: any other sheet, alert or panel
// that is asked for ends at once with no button's return code, and so does what stands or waits when the lock
// comes.
class DocumentWindow
{
public:
    virtual ~DocumentWindow() = default;

    // In screen coordinates, with the lower left corner of the screen as origin.
    virtual Rect frame() const = 0;
    virtual void setFrame(const Rect &frame, bool animate) = 0;
    virtual Size minSize() const = 0;
    virtual bool isToolbarVisible() const = 0;
    virtual void setToolbarVisible(bool visible) = 0;

    virtual void orderOut() = 0;
    virtual void center() = 0;
    virtual void makeKeyAndOrderFront() = 0;
    // Takes the window from the screen for good, with every sheet on it, whose ends are not called any more.
    virtual void close() = 0;

    using SheetEnd = std::function<void(int returnCode)>;
    virtual void beginSheet(const QString &name, SheetEnd ended) = 0;
    // Nothing happens if no such sheet is shown.
    virtual void endSheet(const QString &name, int returnCode = 0) = 0;
    // Ends the sheet, alert or panel that stands and all that wait, as if the user had gone away: with no
    // button's return code.
    virtual void endAllSheets() = 0;
    virtual void beginAlert(const Alert &alert, AlertAnswer answered) = 0;

    // Asks for the place of a document to save, below `suggestedPath`; a null path if the user gives up.
    virtual void beginSavePanel(const QString &suggestedPath, std::function<void(QString path)> ended) = 0;
};

} // namespace Foundation
