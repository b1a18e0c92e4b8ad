#include "lifecycle/VLRevertDocController.h"
#include "support/DocumentFixture.h"

using Foundation::Alert;
using Foundation::Rect;

namespace
{

class Locking : public DocumentFixture
{
protected:
    void savedDocument()
    {
        newProtectedDocument();
        document->recordCommands().addRow({});
        typeNote(u"saved"_qs);
        saveTo(pathOf("locked.vexcards"));
    }
};

TEST_F(Locking, AsksAndLocksAtOnceWithoutTouchingTheFile)
{
    savedDocument();
    const QByteArray file = contentOf(pathOf("locked.vexcards"));
    document->lockDocument({});
    EXPECT_EQ(window->alert().message, u"Lock Document back to the crypted state?");
    EXPECT_EQ(window->alert().style, Alert::Style::Warning);
    window->answer(1001);
    queue.drain();
    EXPECT_FALSE(document->isEncrypted());

    typeNote(u"changed"_qs);
    document->lockDocument({});
    window->answer(1000);
    EXPECT_FALSE(document->isEncrypted()) << "the sheet has to go first";
    queue.drain();
    EXPECT_TRUE(document->isEncrypted());
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(contentOf(pathOf("locked.vexcards")), file) << "no file is touched";

    submit(u"wrong horse"_qs);
    EXPECT_TRUE(document->isEncrypted());
    window->answer(1000);
    submit(password);
    EXPECT_FALSE(document->isEncrypted());
    EXPECT_EQ(note(), u"changed");
    EXPECT_TRUE(document->isDocumentEdited()) << "the file lacks the change";
    document->doLockDocument();
    EXPECT_TRUE(document->keepsRecoveryFile()) << "this time it was not locked by hand";
    submit(u"wrong horse"_qs);
    EXPECT_FALSE(document->isDocumentEdited()) << "an attempt counts as clean";
    window->answer(1000);
    submit(password);
    EXPECT_TRUE(document->isDocumentEdited());
    saveTo(pathOf("locked.vexcards"));
    document->doLockDocument();
    submit(password);
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_EQ(document->selectedView(), MyDocument::ViewMode);
}

TEST_F(Locking, ShrinksTheWindowBelowItsUpperEdgeAndKeepsTheFrameForTheFile)
{
    savedDocument();
    window->frameNow = {100.25, 200.5, 910, 600.75};
    window->toolbarVisible = true;
    document->doLockDocument();
    EXPECT_EQ(window->frameNow, (Rect{100.25, 460.5, 560, 340})) << "the difference is cut to a whole number";
    EXPECT_FALSE(window->toolbarVisible);
    const auto &platform = *document->OSXPlatformDictionary();
    EXPECT_EQ(platform.value(u"windowRecWidth").doubleValue(), 910);
    EXPECT_TRUE(platform.value(u"makeToolbarVisibleAtDecrypt").boolValue());
    submit(password);
    EXPECT_TRUE(window->toolbarVisible);
    EXPECT_EQ(window->frameNow.width, 560) << "only a frame that was read from the file comes back";

    ASSERT_TRUE(open(pathOf("locked.vexcards")));
    submit(password);
    const Rect read = window->frameNow;
    window->frameNow = {1, 2, 3000, 2000};
    document->doLockDocument();
    submit(password);
    EXPECT_EQ(window->frameNow, read);
}

TEST_F(Locking, ByItselfOnlyWithAPasswordAndAFileAndUnderAnySheet)
{
    newDocument();
    document->lockAutomatically();
    newProtectedDocument();
    document->lockAutomatically();
    EXPECT_EQ(queue.waiting(), 0U) << "never saved";

    savedDocument();
    document->documentPassword({});
    document->lockAutomatically();
    EXPECT_TRUE(window->sheet().isNull());
    EXPECT_FALSE(document->isEncrypted()) << "the sheet has to go first";
    queue.drain();
    EXPECT_TRUE(document->isEncrypted());
    document->lockAutomatically();
    EXPECT_EQ(queue.waiting(), 0U) << "locked already";

    submit(password);
    document->recordCommands().deleteRow({});
    document->lockAutomatically();
    EXPECT_FALSE(window->hasAlert());
    queue.drain();
    submit(password);
    EXPECT_EQ(document->myArrayController()->arrangedObjects().size(), 1U) << "no answer is no agreement";
}

TEST_F(Locking, RevertingEndsLockedWithTheContentOfTheFile)
{
    savedDocument();
    Foundation::MenuItem item{u"revertDocumentToSaved"_qs, QString()};
    EXPECT_FALSE(document->validateMenuItem(item)) << "nothing to revert";
    typeNote(u"changed"_qs);
    EXPECT_TRUE(document->validateMenuItem(item));
    const Rect frame = window->frameNow;
    document->revertDocumentToSaved({});
    window->answer(1000);
    EXPECT_TRUE(document->isEncrypted());
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_FALSE(window->toolbarVisible);
    EXPECT_EQ(window->frameNow, frame);
    EXPECT_FALSE(document->undoManager().canUndo());
    submit(password);
    EXPECT_EQ(note(), u"saved");

    typeNote(u"changed"_qs);
    ASSERT_TRUE(QFile::remove(pathOf("locked.vexcards")));
    document->revertDocumentToSaved({});
    window->answer(1000);
    EXPECT_TRUE(document->isDecrypted()) << "nothing is lost with the file";
    EXPECT_EQ(note(), u"changed");
    window->answer(1000);

    ASSERT_TRUE(QFile::copy(QStringLiteral(VEXAREL_TEST_DATA "/documents/version-refused-30601.vexcards"),
                            pathOf("locked.vexcards")));
    modalAlerts.nextAnswers = {1001};
    document->revertDocumentToSaved({});
    window->answer(1000);
    EXPECT_EQ(modalAlerts.shown.size(), 1) << "of a newer release";
    EXPECT_TRUE(document->isDecrypted());
    EXPECT_TRUE(document->YouCanSave());
    EXPECT_EQ(note(), u"changed");
}

TEST_F(Locking, WhatCouldNotBeOpenedAgainIsNotLocked)
{
    savedDocument();
    Foundation::Value nested = Foundation::Array::create();
    for (int level = 0; level < 600; ++level)
        nested = Foundation::Array::create({nested});
    document->myArrayController()->arrangedObjects()[0]->setValue(RecordKey::note, nested);
    document->lockDocument({});
    window->answer(1000);
    queue.drain();
    EXPECT_TRUE(document->isDecrypted());
    EXPECT_EQ(window->alert().message, u"The document “locked.vexcards” could not be locked.");
    EXPECT_TRUE(window->alert().informativeText.contains(u"in each other too deeply. Delete"));
    EXPECT_EQ(document->myArray()->count(), 1);
    window->answer(1000);
    typeNote(u"short"_qs);
    document->lockAutomatically();
    queue.drain();
    EXPECT_TRUE(document->isEncrypted());
    EXPECT_TRUE(document->keepsRecoveryFile()) << "no hand has locked it";
}

TEST_F(Locking, TheHandAndTheClockInOneTurnLockOnce)
{
    savedDocument();
    document->lockDocument({});
    window->answer(1000);
    document->lockAutomatically();
    queue.drain();
    submit(password);
    EXPECT_TRUE(window->toolbarVisible);
}

TEST_F(Locking, TheSelectionStaysAtItsContacts)
{
    savedDocument();
    for (const QString &name : {u"b"_qs, u"c"_qs}) {
        document->recordCommands().addRow({});
        typeNote(name);
    }
    document->myArrayController()->setSortDescriptors({{u"note"_qs, true}});
    document->myArrayController()->setSelectionIndex(0);
    typeNote(u"z, not yet arranged"_qs);
    document->doLockDocument();
    submit(password);
    EXPECT_EQ(note(), u"z, not yet arranged");
}

TEST_F(Locking, NothingIsUndoneBehindTheLock)
{
    savedDocument();
    document->doLockDocument();
    for (const QString &action : {u"undo"_qs, u"redo"_qs}) {
        Foundation::MenuItem item{action, QString()};
        EXPECT_FALSE(document->validateMenuItem(item));
    }
    document->undo({});
    EXPECT_EQ(document->myArray()->count(), 1);
    EXPECT_FALSE(document->isDocumentEdited());
    submit(password);
    EXPECT_TRUE(document->undoManager().canUndo()) << "the stack stays";
}

TEST_F(Locking, SavingAndReopeningShowsTheOpenDocument)
{
    VLRevertDocController controller([] { return std::make_unique<MyDocument>(); });
    ScriptedDocumentWindow shown;
    auto *opened = static_cast<MyDocument *>(controller.newDocument());
    opened->setWindow(&shown);
    opened->setPlainPassword(password);
    shown.savePath = pathOf("advanced.vexcards");
    opened->updateChangeCount(0);
    controller.advancedLockDocument(opened);
    queue.drain();
    EXPECT_TRUE(QFile::exists(pathOf("advanced.vexcards")));
    EXPECT_TRUE(shown.visible);
    shown.visible = false;
    controller.advancedLockDocument(opened);
    EXPECT_FALSE(shown.visible) << "after a delay";
    queue.drain();
    EXPECT_TRUE(shown.visible);
    EXPECT_EQ(controller.documents().size(), 1);
    shown.visible = false;
    controller.document(opened, false, nullptr);
    EXPECT_FALSE(shown.visible);
    opened->setWindow(nullptr);
}

} // namespace
