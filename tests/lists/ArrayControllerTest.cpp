#include "lists/ArrayController.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

using namespace Foundation;

namespace
{

class Controller : public ArrayController
{
public:
    Positions arrangedPositions(const Objects &objects) override
    {
        Positions shown;
        for (quint32 i = 0; i < objects.size(); ++i) {
            if (!objects[i]->value(u"hidden").boolValue())
                shown.push_back(i);
        }
        return sorted(objects, std::move(shown));
    }

    static Object named(const QString &name, bool hidden = false)
    {
        Object object = Dictionary::create();
        object->setValue(u"name", name);
        if (hidden)
            object->setValue(u"hidden", Value(true));
        return object;
    }
    // The names shown, the selected ones in brackets.
    QString shown() const
    {
        QStringList names;
        for (std::size_t i = 0; i < arrangedObjects().size(); ++i) {
            const QString name = arrangedObjects()[i]->value(u"name").stringValue();
            const bool selected = std::count(selectionIndexes().begin(), selectionIndexes().end(), i) > 0;
            names << (selected ? u'[' + name + u']' : name);
        }
        return names.join(u' ');
    }
    void fill(std::initializer_list<const char *> names)
    {
        auto content = Array::create();
        for (const char *name : names)
            content->values.push_back(named(QString::fromLatin1(name)));
        setContent(content);
    }
};

TEST(ArrayController, AddedObjectsAreSelectedAndRemovedOnesLeaveTheirPlaceSelected)
{
    Controller controller;
    EXPECT_EQ(controller.shown(), u"");
    EXPECT_FALSE(controller.canRemove());
    controller.fill({"a", "b", "c"});
    EXPECT_EQ(controller.shown(), u"[a] b c");
    const auto d = Controller::named(u"d"_qs);
    controller.addObject(d);
    EXPECT_EQ(controller.shown(), u"a b c [d]");
    controller.insertObject(Controller::named(u"x"_qs), 1);
    EXPECT_EQ(controller.shown(), u"a [x] b c d");
    controller.removeSelectedObjects();
    EXPECT_EQ(controller.shown(), u"a [b] c d");
    controller.removeObject(d);
    EXPECT_EQ(controller.shown(), u"a [b] c");
    controller.setSelectionIndexes({0, 2, 7});
    EXPECT_EQ(controller.shown(), u"[a] b [c]");
    controller.removeSelectedObjects();
    EXPECT_EQ(controller.shown(), u"[b]");
    controller.removeSelectedObjects();
    EXPECT_FALSE(controller.canRemove());
    EXPECT_EQ(controller.content()->count(), 0);
}

TEST(ArrayController, SelectionStaysWithItsObjectsOverRearrangements)
{
    Controller controller;
    controller.fill({"a", "b", "c", "d"});
    controller.setSelectionIndex(1);
    controller.setSortDescriptors({{u"name"_qs, false}});
    EXPECT_EQ(controller.shown(), u"d c [b] a");
    controller.arrangedObjects()[2]->setValue(u"hidden", Value(true));
    controller.rearrangeObjects();
    // The object selected is hidden now: the selection is not left empty.
    EXPECT_TRUE(controller.canRemove());
    EXPECT_EQ(controller.shown(), u"d c [a]");
    controller.setSelectionIndexes({0, 2});
    const quint64 stamp = controller.selectionStamp();
    controller.addObject(Controller::named(u"ghost"_qs, true));
    controller.insertObject(Controller::named(u"ghost"_qs, true), 1);
    EXPECT_EQ(controller.shown(), u"[d] c [a]") << "what is hidden leaves the selection alone";
    EXPECT_EQ(controller.selectionStamp(), stamp);
    EXPECT_EQ(controller.content()->count(), 6);
    controller.insertObject(Controller::named(u"e"_qs), 1);
    EXPECT_EQ(controller.shown(), u"[e] d c a");
    EXPECT_NE(controller.selectionStamp(), stamp);
    EXPECT_EQ(controller.content()->count(), 7);
    for (const qsizetype beyond : {-1, 9}) {
        controller.insertObject(Controller::named(u"z"_qs), beyond);
        EXPECT_EQ(controller.content()->values.back().dictionary(), controller.selectedObjects()[0])
            << beyond;
    }
}

TEST(ArrayController, AddingAndRemovingLeaveAllElseInTheListWhereItStands)
{
    Controller controller;
    controller.fill({"b", "d", "f"});
    controller.setSortDescriptors({{u"name"_qs, true}});
    controller.arrangedObjects()[0]->setValue(u"hidden", Value(true)); // From the next arrangement on.
    controller.arrangedObjects()[1]->setValue(u"name", u"z"_qs);
    const quint64 stamp = controller.selectionStamp();
    controller.addObject(Controller::named(u"ghost"_qs, true));
    EXPECT_EQ(controller.shown(), u"[b] z f");
    EXPECT_EQ(controller.selectionStamp(), stamp) << "the same object is selected";
    const auto c = Controller::named(u"c"_qs);
    controller.addObject(c);
    EXPECT_EQ(controller.shown(), u"[c] b z f");
    EXPECT_NE(controller.selectionStamp(), stamp);
    controller.removeObject(c);
    controller.removeSelectedObjects();
    EXPECT_EQ(controller.shown(), u"[z] f");
    controller.rearrangeObjects();
    EXPECT_EQ(controller.shown(), u"f [z]");
}

int likenessAsked = 0;

TEST(ArrayController, LooksOnceForWhatManySelectedShareAndTellsOnceOfAnEdit)
{
    Controller controller;
    controller.fill({"a", "b", "c"});
    controller.content()->values[0].dictionary()->setValue(u"note", u""_qs);
    controller.setSelectionIndexes({0, 1, 2});
    const auto bothEmpty = [](const Value &a, const Value &b) {
        ++likenessAsked;
        return a.text().size == 0 && b.text().size == 0;
    };
    bool isMixed = true;
    for (int control = 0; control < 5; ++control)
        EXPECT_EQ(controller.valueForSelection(u"note", &isMixed, bothEmpty), Value(u""_qs));
    EXPECT_FALSE(isMixed);
    EXPECT_EQ(likenessAsked, 2);

    int told = 0;
    QObject::connect(&controller, &ArrayController::objectsChanged, [&](const auto &indexes) {
        ++told;
        EXPECT_EQ(indexes, controller.selectionIndexes());
    });
    controller.setValueForSelection(Key(u"note"), u"x"_qs);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(controller.valueForSelection(u"note"), Value(u"x"_qs));
    controller.arrangedObjects()[2]->setValue(u"note", u"y"_qs);
    EXPECT_TRUE(controller.valueForSelection(u"note", &isMixed).isNull() && isMixed);
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(controller.valueForSelection(u"note"), Value(u"x"_qs));
}

} // namespace
