#include "lifecycle/VLRevertDocController.h"

#include "platform/Services.h"

#include <QPointer>

using Foundation::Document;

void VLRevertDocController::advancedLockDocument(Document *document)
{
    const QPointer<Document> watched(document);
    const QPointer<VLRevertDocController> controller(this);
    if (document->isDocumentEdited()) {
        document->saveWithCompletion([controller, watched](const Foundation::DocumentResult<> &saved) {
            if (controller && watched)
                controller->document(watched, saved.succeeded(), nullptr);
        });
        return;
    }
    Foundation::Services::shared().mainQueue().addOperation([controller, watched] {
        if (controller && watched)
            controller->CloseAndReopenTheDoc(watched);
    });
}

void VLRevertDocController::document(Document *document, bool didSave, void *)
{
    if (didSave)
        CloseAndReopenTheDoc(document);
}

void VLRevertDocController::CloseAndReopenTheDoc(Document *document)
{
    openDocument(document->fileURL());
}
