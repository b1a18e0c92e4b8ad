#include "window/sheets/FilePanels.h"

#include "lifecycle/MyDocument.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QLineEdit>
#include <QSettings>

namespace
{

class Words
{
    Q_DECLARE_TR_FUNCTIONS(FilePanels)
};

// Accepts a name with quotation marks unchanged. The toolkit treats quotation marks as separators of several
// names, and would silently use the part between them.
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

// Distinguishes only files and folders. The class of the toolkit reads the beginning of each listed file on
// the main thread, which blocks while a single file does not answer.
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
        return file.isDir() ? Words::tr("Folder") : Words::tr("File");
    }
};

void setUpPanel(QFileDialog *panel)
{
    static PlainIcons icons; // A panel does not own it and uses it in its destructor.
    panel->setIconProvider(&icons);
    // A panel of the desktop would keep a history, and while it has the focus, the application would count as
    // inactive.
    panel->setOption(QFileDialog::DontUseNativeDialog);
    panel->setNameFilters({Words::tr("Vexarel documents (*.vexcards)"), Words::tr("All files (*)")});
}

} // namespace

QFileDialog *newSavePanel(const QString &suggestedPath, QWidget *parent)
{
    auto *panel = new DocumentPanel(parent, Words::tr("Save Document"));
    setUpPanel(panel);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setDefaultSuffix(MyDocument::type().fileNameExtension);
    // The question of the panel would interpret mark-up in the name of the file, and would come before the
    // suffix is added.
    panel->setOption(QFileDialog::DontConfirmOverwrite);
    const QFileInfo suggestion(suggestedPath);
    panel->setDirectory(suggestion.absolutePath());
    panel->selectFile(suggestion.fileName());
    return panel;
}

QFileDialog *newOpenPanel(QWidget *parent)
{
    auto *panel = new DocumentPanel(parent, Words::tr("Open Documents"));
    setUpPanel(panel);
    panel->setFileMode(QFileDialog::ExistingFiles);
    return panel;
}

QString withDocumentSuffix(const QString &path)
{
    const QString suffix = u'.' + MyDocument::type().fileNameExtension;
    return path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

void keepNoPanelHistory()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}
