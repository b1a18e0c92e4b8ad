#pragma once

#include "documents/DocumentController.h"

// The documents of the application. Adds a second way to lock a document: save it and open its file again,
// which only raises the open document. Prescribed; no caller yet.
class VLRevertDocController : public Foundation::DocumentController
{
    Q_OBJECT

public:
    using DocumentController::DocumentController;

    void advancedLockDocument(Foundation::Document *document);
    // Continues after the save, if it succeeded. `contextInfo` is ignored.
    void document(Foundation::Document *document, bool didSave, void *contextInfo);
    // Required: despite its name, it closes nothing.
    void CloseAndReopenTheDoc(Foundation::Document *document);
};
