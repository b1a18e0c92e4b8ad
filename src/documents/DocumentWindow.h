#pragma once

#include "platform/Alert.h"
#include "values/Geometry.h"

#include <QString>

#include <functional>

namespace Foundation
{

// The window of a document as the logic sees it. The window layer implements it, and tests have a double.
//
// Sheets and alerts belong to the window and block only this window; every call returns immediately. The
// names of sheets are those of the interface files. Completions (`ended`, `answered`) are called on a later
// turn of the event loop, after the sheet was closed. One sheet or alert is open at a time; others wait.
//
// No completion is called after close(), and a document closes its window before it is deleted. So a
// completion may capture its document directly. Every other lambda that is called later must capture a
// QPointer, or a member must cancel the call.
//
// While the document is locked, only alerts with Alert::mayStandOverLock are shown. All other sheets, alerts
// and panels end with a return code that no button has, and so do those that are open or waiting when the
// document is locked.
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
    // Closes the window and its sheets.
    virtual void close() = 0;

    using SheetEnd = std::function<void(int returnCode)>;
    virtual void beginSheet(const QString &name, SheetEnd ended) = 0;
    // Ends an open sheet. Does nothing if that sheet is not open.
    virtual void endSheet(const QString &name, int returnCode = 0) = 0;
    // Ends the open sheet, alert or panel and all waiting ones with a return code that no button has.
    virtual void endAllSheets() = 0;
    virtual void beginAlert(const Alert &alert, AlertAnswer answered) = 0;

    // Asks where to save a document, beginning with `suggestedPath`. The path is null if the user cancels.
    virtual void beginSavePanel(const QString &suggestedPath, std::function<void(QString path)> ended) = 0;
};

} // namespace Foundation
