#pragma once

#include "window/controls/SheetQueue.h"

// Asks for the place of a document to save, as a sheet of its window. The path that comes out bears the
// suffix of documents, and a file that stands there is only given after the user has agreed to replace it.
class SavePanel
{
public:
    using PathChosen = std::function<void(QString path)>;
    // Asks the user for a path below the suggested one; a null path means that the user gave up.
    using PathChooser = std::function<void(const QString &suggestedPath, PathChosen chosen)>;

    // The sheets must outlive the panel.
    explicit SavePanel(SheetQueue &sheets);

    // Takes the place of the file dialog.
    void setPathChooser(PathChooser chooser) { m_choosePath = std::move(chooser); }

    // A null path if the user gives up.
    void begin(const QString &suggestedPath, const PathChosen &ended);

private:
    void showFileDialog(const QString &suggestedPath, PathChosen chosen);
    void askToReplace(const QString &path, const PathChosen &ended);

    SheetQueue &m_sheets;
    PathChooser m_choosePath;
};
