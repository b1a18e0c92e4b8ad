#include "foundation/UndoManager.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

// A text that grows and shrinks by recorded inverses.
class Typewriter
{
public:
    void type(QChar letter)
    {
        manager.registerUndo([this] { erase(); });
        manager.setActionName(QStringLiteral("Type %1").arg(letter));
        text += letter;
    }
    void erase()
    {
        const QChar letter = text.back();
        manager.registerUndo([this, letter] { type(letter); });
        manager.setActionName(QStringLiteral("Type %1").arg(letter));
        text.chop(1);
    }

    Foundation::UndoManager manager;
    QString text;
};

TEST(UndoManager, WalksBackAndForthAndForgetsRedoAtANewCommand)
{
    Typewriter writer;
    for (const QChar letter : QStringLiteral("abc"))
        writer.type(letter);
    EXPECT_EQ(writer.manager.undoActionName(), u"Type c");
    writer.manager.undo();
    writer.manager.undo();
    EXPECT_EQ(writer.text, u"a");
    EXPECT_EQ(writer.manager.redoActionName(), u"Type b");
    writer.manager.redo();
    EXPECT_EQ(writer.text, u"ab");
    writer.type(u'x');
    EXPECT_FALSE(writer.manager.canRedo());
    for (int i = 0; i < 5; ++i)
        writer.manager.undo();
    EXPECT_EQ(writer.text, u"");
    EXPECT_TRUE(writer.manager.undoActionName().isNull());
    while (writer.manager.canRedo())
        writer.manager.redo();
    EXPECT_EQ(writer.text, u"abx");
}

} // namespace
