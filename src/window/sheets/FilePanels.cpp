#include "window/sheets/FilePanels.h"

#include <QFileDialog>
#include <QFileIconProvider>
#include <QLineEdit>
#include <QSettings>

const QString DocumentSuffix = QStringLiteral("vexcards");

namespace
{

// Takes a name with quotation marks as it stands. The toolkit takes these marks for the ends of several
// names, and would silently take what stands between them for the name.
class DocumentPanel : public QFileDialog
{
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override
    {
        const auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        const QFileInfo file(directory().absoluteFilePath(name ? name->text() : QString()));
        const bool isOneName = file.isFile() || (acceptMode() == AcceptSave && !file.isDir());
        if (!name || !name->text().contains(u'"') || !isOneName) {
            QFileDialog::accept();
            return;
        }
        Q_EMIT fileSelected(file.filePath());
        Q_EMIT filesSelected({file.filePath()});
        QDialog::accept();
    }
};

// Knows a folder from a file and asks for no more. The toolkit's own reads the beginning of each listed file
// on the thread of the windows, which hangs for as long as a single one does not answer.
class PlainIcons : public QFileIconProvider
{
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo &file) const override
    {
        return QFileIconProvider::icon(file.isDir() ? Folder : File);
    }
    QString type(const QFileInfo &file) const override
    {
        return file.isDir() ? QFileDialog::tr("Folder") : QFileDialog::tr("File");
    }
};

void setUpPanel(QFileDialog *panel)
{
    static PlainIcons icons; // A panel does not own it, and uses it until its very end.
    panel->setIconProvider(&icons);
    // One of the desktop's would keep a history of its own, and while it had the focus the application would
    // count as left.
    panel->setOption(QFileDialog::DontUseNativeDialog);
    panel->setNameFilters(
        {QFileDialog::tr("Vexarel documents (*.vexcards)"), QFileDialog::tr("All files (*)")});
}

} // namespace

QFileDialog *newSavePanel(const QString &suggestedPath, QWidget *parent)
{
    auto *panel = new DocumentPanel(parent, QFileDialog::tr("Save Document"));
    setUpPanel(panel);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setDefaultSuffix(DocumentSuffix);
    // Its own question would read mark-up in the file's name, and come before the suffix is complete.
    panel->setOption(QFileDialog::DontConfirmOverwrite);
    const QFileInfo suggestion(suggestedPath);
    panel->setDirectory(suggestion.absolutePath());
    panel->selectFile(suggestion.fileName());
    return panel;
}

QFileDialog *newOpenPanel(QWidget *parent)
{
    auto *panel = new DocumentPanel(parent, QFileDialog::tr("Open Documents"));
    setUpPanel(panel);
    panel->setFileMode(QFileDialog::ExistingFiles);
    return panel;
}

QString withDocumentSuffix(const QString &path)
{
    const QString suffix = u'.' + DocumentSuffix;
    return path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

void keepNoPanelHistory()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}
