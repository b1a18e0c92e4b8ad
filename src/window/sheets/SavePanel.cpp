#include "window/sheets/SavePanel.h"

#include "window/sheets/AlertDialog.h"
#include "window/sheets/FilePanels.h"

#include <QFileDialog>
#include <QFileInfo>

using Foundation::Alert;

SavePanel::SavePanel(SheetQueue &sheets)
    : m_sheets(sheets)
    , m_choosePath(
          [this](const QString &suggestion, const PathChosen &chosen) { showFileDialog(suggestion, chosen); })
{
}

void SavePanel::begin(const QString &suggestedPath, const PathChosen &ended)
{
    m_choosePath(suggestedPath, [this, ended](const QString &path) {
        if (path.isNull())
            ended(path);
        else
            askToReplace(withDocumentSuffix(path), ended);
    });
}

void SavePanel::showFileDialog(const QString &suggestedPath, PathChosen chosen)
{
    const auto path = std::make_shared<QString>();
    m_sheets.begin(
        QString(),
        [suggestedPath, path](QWidget *parent) {
            QFileDialog *dialog = newSavePanel(suggestedPath, parent);
            QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                             [path](const QString &file) { *path = file; });
            return dialog;
        },
        [path, chosen = std::move(chosen)](int result) {
            chosen(result == QDialog::Accepted ? *path : QString());
        });
}

void SavePanel::askToReplace(const QString &path, const PathChosen &ended)
{
    if (!QFileInfo::exists(path)) {
        ended(path);
        return;
    }
    const Alert alert{tr("“%1” already exists. Do you want to replace it?").arg(QFileInfo(path).fileName()),
                      tr("Replacing it overwrites what it holds now."),
                      {{tr("Replace")}, {tr("Cancel"), Foundation::AlertButton::Cancel}}};
    m_sheets.begin(
        QString(), [alert](QWidget *parent) { return new AlertDialog(alert, parent); },
        [this, path, ended](int returnCode) {
            if (returnCode == Alert::FirstButtonReturn)
                ended(path);
            else if (returnCode == Alert::SecondButtonReturn)
                begin(path, ended);
            else
                ended(QString());
        });
}
