#include "window/WindowTest.h"

const QString WindowTest::password = u"correct horse"_qs;

bool WindowTest::expect(bool holds, const QString &what) const
{
    EXPECT_TRUE(holds) << what.toStdString();
    return holds;
}

void WindowTest::chooseNextPath(const QString &path)
{
    controller()->savePanel().setPathChooser([this, path](const QString &suggested, const auto &chosen) {
        suggestedPaths.append(suggested);
        chosen(path);
    });
}

void WindowTest::saveTo(const QString &name)
{
    chooseNextPath(pathOf(name));
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_FALSE(document()->isDocumentEdited());
}

void WindowTest::openDocument(const QString &path)
{
    ASSERT_TRUE(application.documentController().openDocument(path));
    ASSERT_TRUE(windowIsActive());
}
