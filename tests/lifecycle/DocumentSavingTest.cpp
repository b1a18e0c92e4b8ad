#include "support/DocumentFixture.h"

#include <QFile>

namespace
{

class DocumentSaving : public DocumentFixture
{
};

TEST_F(DocumentSaving, ALockedDocumentClosesAtOnceAndNeverAnswers)
{
    newProtectedDocument();
    saveTo(pathOf("f.vexcards"));
    ASSERT_TRUE(open(pathOf("f.vexcards")));
    document->updateChangeCount(0);
    MyDocument *locked = document.release(); // closing deletes it
    bool called = false;
    locked->canCloseDocument([&called](bool) { called = true; });
    EXPECT_TRUE(window->closed);
    EXPECT_FALSE(window->hasAlert() || called);
    endEvent();
}

TEST_F(DocumentSaving, OneFileIsOneDocumentAndQuittingAsksEachOfThem)
{
    const QString path = pathOf("g.vexcards");
    newProtectedDocument();
    saveTo(path);
    ASSERT_TRUE(QFile::link(path, pathOf("link.vexcards")));
    Foundation::DocumentController controller([] { return std::make_unique<MyDocument>(); });
    std::vector<std::unique_ptr<ScriptedDocumentWindow>> windows;
    QObject::connect(&controller, &Foundation::DocumentController::documentAdded,
                     [&windows](Foundation::Document *added) {
                         windows.push_back(std::make_unique<ScriptedDocumentWindow>());
                         static_cast<MyDocument *>(added)->setWindow(windows.back().get());
                     });
    Foundation::Document *locked = controller.openDocument(path);
    EXPECT_EQ(controller.openDocument(pathOf("link.vexcards")), locked);
    Foundation::Document *fresh = controller.newDocument();
    EXPECT_EQ(controller.newDocument()->displayName(), u"Untitled 2");
    fresh->updateChangeCount(0);

    std::optional<bool> done, doneAgain;
    controller.closeAllDocuments([&done](bool all) { done = all; });
    controller.closeAllDocuments([&doneAgain](bool all) { doneAgain = all; });
    EXPECT_EQ(doneAgain, false) << "it is being asked already";
    EXPECT_FALSE(done.has_value());
    windows[1]->answer(1001);
    EXPECT_FALSE(windows[1]->hasAlert());
    EXPECT_EQ(done, false);
    EXPECT_EQ(controller.documents().size(), 2) << "the clean one has gone, the other two stay";
    controller.closeAllDocuments([&done](bool all) { done = all; });
    windows[1]->answer(1002);
    EXPECT_EQ(done, true);
    EXPECT_TRUE(controller.documents().isEmpty());
    endEvent();
}

} // namespace
