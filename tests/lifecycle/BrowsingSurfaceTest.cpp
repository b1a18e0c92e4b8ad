#include "platform/ColorPanel.h"
#include "support/DocumentFixture.h"

using Foundation::ActionSender;
using Foundation::ColorPanel;

namespace
{

class BrowsingSurfaceTest : public DocumentFixture
{
protected:
    // What a control of an interface file does.
    void send(const char *action)
    {
        EXPECT_TRUE(Foundation::sendAction(document->responders(), QString::fromLatin1(action), {}))
            << action;
    }
};

TEST_F(BrowsingSurfaceTest, TheSecondFormOfTheSearchIsAConditionToBindTo)
{
    newProtectedDocument();
    document->setSearchText(u"Zoë"_qs);
    send("doSearch");
    ASSERT_TRUE(document->searchPredicate());
    EXPECT_EQ(document->searchPredicate()->predicateFormat(),
              u"(name CONTAINS[cd] \"Zoë\" OR category CONTAINS[cd] \"Zoë\")");
    for (const QString &nothing : {QString(), u""_qs}) {
        document->setSearchText(nothing);
        send("doSearch");
        EXPECT_FALSE(document->searchPredicate());
    }
}

TEST_F(BrowsingSurfaceTest, AColourChosenAnywhereMarksEveryDocument)
{
    newProtectedDocument();
    send("addRow");
    ASSERT_TRUE(document->writeToFile(pathOf("a.vexcards")));
    const auto first = std::move(document);
    const auto firstWindow = std::move(window);
    ASSERT_TRUE(open(pathOf("a.vexcards")));
    ASSERT_TRUE(document->isEncrypted());
    ASSERT_FALSE(first->isDocumentEdited() || document->isDocumentEdited());
    ColorPanel::shared().setColor({0.1, 0.2, 0.3});
    EXPECT_TRUE(first->isDocumentEdited());
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(window->redrawn, (QStringList{u"category"_qs, u"categoryTable"_qs}));
}

// Which tag is which field is told by the interface files.
TEST_F(BrowsingSurfaceTest, OnlyAFilledFieldOpensButTheOlderActionsTryAnything)
{
    newProtectedDocument();
    send("addRow");
    document->myArrayController()->setValueForSelection(RecordKey::webPersonal, u"fjord.example"_qs);
    for (const int tag : {-1, 0, 8, 16, 14}) {
        Foundation::ActionSender sender;
        sender.tag = tag;
        Foundation::sendAction(document->responders(), u"openField"_qs, sender);
        EXPECT_EQ(workspace.openedUrls.size(), tag == 14 ? 1 : 0) << tag;
    }
    send("openUrlWebPersonal");
    EXPECT_EQ(workspace.openedUrls, QStringList({u"http://fjord.example"_qs, u"http://fjord.example"_qs}));
    send("openUrlWebWork");
    EXPECT_GE(workspace.openedUrls.size(), 3) << "an attempt is made";
}

} // namespace
