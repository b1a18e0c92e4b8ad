#pragma once

#include "window/controls/SheetQueue.h"

#include <QCoreApplication>

// Asks in a sheet where to save a document. The resulting path has the suffix of documents. If the file
// exists, the user has agreed to replace it.
class SavePanel
{
    Q_DECLARE_TR_FUNCTIONS(SavePanel)
public:
    using PathChosen = std::function<void(QString path)>;
    // Asks the user for a path, beginning with the suggested one. The result is null if the user cancelled.
    using PathChooser = std::function<void(const QString &suggestedPath, PathChosen chosen)>;

    // `sheets` must outlive the panel.
    explicit SavePanel(SheetQueue &sheets);

    // Replaces the file dialog, for tests.
    void setPathChooser(PathChooser chooser) { m_choosePath = std::move(chooser); }

    // Calls `ended` with the path, or with null if the user cancelled.
    void begin(const QString &suggestedPath, const PathChosen &ended);

private:
    void showFileDialog(const QString &suggestedPath, PathChosen chosen);
    void askToReplace(const QString &path, const PathChosen &ended);

    SheetQueue &m_sheets;
    PathChooser m_choosePath;
};
