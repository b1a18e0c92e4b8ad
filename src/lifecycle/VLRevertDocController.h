#pragma once

#include "documents/DocumentController.h"

// The documents of the application, with a second way of locking that nothing here takes: to save a document
// and open its file again, which shows the one that is open.
class VLRevertDocController : public Foundation::DocumentController
{
    Q_OBJECT

public:
    using DocumentController::DocumentController;

    void advancedLockDocument(Foundation::Document *document);
    // Goes on only if the save succeeded. The context is not looked at.
    void document(Foundation::Document *document, bool didSave, void *contextInfo);
    // In spite of its name it closes nothing.
    void CloseAndReopenTheDoc(Foundation::Document *document);
};
