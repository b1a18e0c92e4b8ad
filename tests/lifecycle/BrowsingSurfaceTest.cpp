#include "foundation/ColorPanel.h"
#include "support/DocumentFixture.h"

#include <QMetaProperty>

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

// Interface files name them, and old ones may name those that nothing here calls.
TEST_F(BrowsingSurfaceTest, EveryNameIsThere)
{
    newProtectedDocument();
    for (const char *action :
         {// records
          "addRow", "duplicateRow", "deleteRow", "deleteRows", "remove", "search", "doSearch",
          "askToInsertPasswordBeforeAddingData", "isACompanySwitched", "deleteContact", "recordEdited",
          "sortByCategory", "sortByName", "scrollListViewToBottom",
          // categories
          "editCategoriesSheet", "closeCategoriesSheet", "scrollCategoryViewToBottom", "addNewCategory",
          "removeCategory", "categoryWasSet", "doSelectCatMenu", "showAllCategory",
          "showOnlySpecificCategory", "showAllAndResetFilter", "colorChanged", "synkCategorySubMenu",
          "setUpCategorySubMenu",
          // captions
          "editLabelSheet", "closeLabelSheet", "setDefaultDictionaryLabel",
          // window
          "openField", "openUrlWebWork", "openUrlWebPersonal", "printDocument", "runPageLayout",
          "switchViewEditMode", "makeNameFieldFirstResponder", "debug1"})
        EXPECT_TRUE(Foundation::responderForAction(document->responders(), QString::fromLatin1(action)))
            << action;

    const struct
    {
        const QObject *object;
        std::vector<const char *> properties;
    } observables[] = {
        {document.get(),
         {"myArrayController", "myCategoryArrayController", "categoryArrayControllerForMenu",
          "myLabelDictionary", "searchText", "searchCategory", "categoryString", "selectedView",
          "properTextColor", "falseValue", "yesVal"}},
        {document->myArrayController(),
         {"categoryString", "searchString", "usedFilterDisplay", "filterInAction", "canRemove"}},
    };
    for (const auto &[object, properties] : observables) {
        for (const char *name : properties) {
            const QMetaObject &meta = *object->metaObject();
            const QMetaProperty property = meta.property(meta.indexOfProperty(name));
            EXPECT_TRUE(property.isReadable()) << name;
            EXPECT_TRUE(property.hasNotifySignal() || property.isConstant()) << name;
        }
    }

    // What has no caller here is called here.
    VLColoredCategoryArrayController &categories = *document->myCategoryArrayController();
    const auto category = categories.addDefault({});
    EXPECT_TRUE(categories.incrementObj(category, 2));
    EXPECT_EQ(categories.getCategoryWithUniqueID(2), category);
    EXPECT_EQ(category->value(CategoryKey::cat_howManyUsingThis).intValue(), 2);
    EXPECT_EQ(
        categories.VLCategoryArrayController::newObject()->value(CategoryKey::cat_category).stringValue(),
        u"Untitled");
    EXPECT_TRUE(document->myArrayController()->commitEditing());
}

TEST_F(BrowsingSurfaceTest, TheSecondFormOfTheSearchIsAConditionToBindTo)
{
    newProtectedDocument();
    document->setSearchText(u"Zoë"_qs);
    send("doSearch");
    ASSERT_TRUE(document->searchPredicate());
    EXPECT_EQ(document->searchPredicate()->predicateFormat(),
              u"(name CONTAINS[cd] \"Zoë\" OR category CONTAINS[cd] \"Zoë\")");
    const auto record = Foundation::Dictionary::create();
    EXPECT_FALSE(document->searchPredicate()->evaluate(*record));
    record->setValue(u"category", u"my ZOE"_qs);
    EXPECT_TRUE(document->searchPredicate()->evaluate(*record));
    for (const QString &nothing : {QString(), u""_qs}) {
        document->setSearchText(nothing);
        send("doSearch");
        EXPECT_FALSE(document->searchPredicate());
    }
}

TEST_F(BrowsingSurfaceTest, TheStripFollowsTheFilterAndTheFilterSurvivesALock)
{
    newProtectedDocument();
    send("addRow");
    send("addRow");
    typeNote(u"tea"_qs);
    EXPECT_EQ(window->searchInfoShown, QList<bool>{false});
    document->setSearchText(u"TEA"_qs);
    send("search");
    EXPECT_EQ(window->searchInfoShown, (QList<bool>{false, true})) << "once, however often it is asked for";
    const auto file = document->dataOfType({});
    QString reason;
    ASSERT_TRUE(file && document->readFromData(*file, {}, &reason));
    submit(password);
    EXPECT_EQ(document->myArrayController()->arrangedObjects().size(), 1U);
    send("showAllAndResetFilter");
    EXPECT_EQ(document->searchText(), u"");
    EXPECT_EQ(document->myArrayController()->arrangedObjects().size(), 2U);
    EXPECT_EQ(window->searchInfoShown, (QList<bool>{false, true, false}));
}

TEST_F(BrowsingSurfaceTest, AColourChosenAnywhereMarksEveryDocument)
{
    newProtectedDocument();
    send("addRow");
    QString reason;
    ASSERT_TRUE(document->writeToFile(pathOf("a.vexcards"), &reason));
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

TEST_F(BrowsingSurfaceTest, EachDocumentKeepsItsOwnCaptions)
{
    newProtectedDocument();
    const QString usual = document->myLabelDictionary()->value(RecordKey::pager).stringValue();
    EXPECT_FALSE(usual.isEmpty());
    document->updateChangeCount(Foundation::Document::ChangeCleared);
    send("editLabelSheet");
    EXPECT_EQ(window->sheet(), LabelCommands::LabelSheet);
    send("closeLabelSheet");
    EXPECT_TRUE(window->sheet().isNull());
    EXPECT_TRUE(document->isDocumentEdited()) << "even if no caption was touched";

    document->myLabelDictionary()->setValue(RecordKey::pager, u"Чат 💬"_qs);
    document->myLabelDictionary()->setValue(RecordKey::faxWork, u""_qs);
    QString reason;
    ASSERT_TRUE(document->writeToFile(pathOf("captions.vexcards"), &reason));
    newProtectedDocument();
    EXPECT_EQ(document->myLabelDictionary()->value(RecordKey::pager).stringValue(), usual);
    ASSERT_TRUE(open(pathOf("captions.vexcards")));
    submit(password);
    EXPECT_EQ(document->myLabelDictionary()->value(RecordKey::pager).stringValue(), u"Чат 💬");
    EXPECT_EQ(document->myLabelDictionary()->value(RecordKey::faxWork), Foundation::Value(u""_qs));
}

TEST_F(BrowsingSurfaceTest, TheWindowIsSetUpWhenItsInterfaceIsLoaded)
{
    newProtectedDocument();
    EXPECT_EQ(document->properTextColor(), window->controlTextColor());
    const VLVSplitViewDelegate &rule = window->splitViewDelegate;
    EXPECT_EQ(rule.minHSizeLeft(), 210);
    EXPECT_EQ(rule.maxHSizeLeft(), 660);
    EXPECT_EQ(rule.minHSizeRight(), 450);
    EXPECT_EQ(rule.maxHSizeRight(), 9999);
    EXPECT_EQ(rule.growingRule, 2);
    EXPECT_FALSE(rule.canCollapseLeft() || rule.canCollapseRight());
    send("printDocument");
    send("runPageLayout");
    EXPECT_EQ(window->prints, 1);
    EXPECT_EQ(window->pageLayouts, 1);
    for (const char *action : {"printDocument", "runPageLayout"}) {
        Foundation::MenuItem item{QString::fromLatin1(action), QString()};
        EXPECT_TRUE(document->validateMenuItem(item)) << action;
        document->setIsEncrypted(true);
        EXPECT_FALSE(document->validateMenuItem(item)) << action;
        document->setIsEncrypted(false);
    }
}

TEST_F(BrowsingSurfaceTest, AFieldOpensByItsTag)
{
    newProtectedDocument();
    send("addRow");
    FilteringArrayController &records = *document->myArrayController();
    const std::vector<const char *> keys = {"firstName",     "lastName",      "company",        "phoneWork",
                                            "faxWork",       "pager",         "emailWork",      "webWork",
                                            "addressWork",   "phonePersonal", "faxPersonal",    "mobile",
                                            "emailPersonal", "webPersonal",   "addressPersonal"};
    for (const char *key : keys)
        records.setValueForSelection(Foundation::Key(QString::fromLatin1(key)),
                                     QString::fromLatin1(key).toLower() + u".example"_qs);
    const auto open = [this](int tag) {
        workspace.openedUrls.clear();
        Foundation::ActionSender sender;
        sender.tag = tag;
        Foundation::sendAction(document->responders(), u"openField"_qs, sender);
        return workspace.openedUrls;
    };
    for (std::size_t i = 0; i < keys.size(); ++i)
        EXPECT_EQ(open(int(i) + 1),
                  QStringList{u"http://%1.example"_qs.arg(QString::fromLatin1(keys[i]).toLower())});
    for (const int tag : {-1, 0, 16})
        EXPECT_EQ(open(tag), QStringList()) << tag;
    // An empty field is nothing to openField, and an address to the older actions.
    records.setValueForSelection(RecordKey::webWork, u""_qs);
    EXPECT_EQ(open(8), QStringList());
    send("openUrlWebPersonal");
    EXPECT_EQ(workspace.openedUrls, QStringList{u"http://webpersonal.example"_qs});
    send("openUrlWebWork");
    EXPECT_GE(workspace.openedUrls.size(), 2) << "an attempt is made";
}

} // namespace
