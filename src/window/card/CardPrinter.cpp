#include "window/card/CardPrinter.h"

#include "lifecycle/MyDocument.h"
#include "window/card/PrintedCard.h"
#include "window/card/VLWhiteView.h"
#include "window/sheets/AlertDialog.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>

using Foundation::Failure;

namespace
{

// The dialog of the toolkit applies the chosen layout to the printer at the end of exec(), and not after
// open(), which a sheet needs. So this class calls exec() for a moment when it is accepted.
class PageLayoutDialog : public QPageSetupDialog
{
public:
    using QPageSetupDialog::QPageSetupDialog;

    void done(int result) override
    {
        if (m_isApplying) {
            setResult(result);
            hide(); // ends exec()
            return;
        }
        const QPointer<PageLayoutDialog> self(this);
        if (result == Accepted) {
            m_isApplying = true;
            QMetaObject::invokeMethod(this, &QDialog::accept, Qt::QueuedConnection);
            exec();
        }
        if (self)
            QPageSetupDialog::done(result);
    }

private:
    bool m_isApplying = false;
};

// The toolkit reports no failed write of a PDF, for example on a full disk.
bool isWholePdf(const QString &path)
{
    constexpr qint64 EndSize = 16;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(file.size() - EndSize, 0)) &&
           file.readAll().contains("%%EOF");
}

} // namespace

CardPrinter::CardPrinter(SheetQueue &sheets, MyDocument &document)
    : m_sheets(sheets)
    , m_document(document)
{
}

QPrinter &CardPrinter::printer()
{
    if (!m_printer) {
        constexpr qreal Margin = 15; // in millimetres
        m_printer = std::make_unique<QPrinter>();
        m_printer->setPageMargins({Margin, Margin, Margin, Margin}, QPageLayout::Millimeter);
    }
    return *m_printer;
}

void CardPrinter::beginPrint()
{
    // Spoolers and logs store the names of jobs, so this name contains nothing of the contact.
    printer().setDocName(QGuiApplication::applicationDisplayName());
    m_sheets.begin(
        QString(),
        [this](QWidget *parent) {
            auto *dialog = new QPrintDialog(&printer(), parent);
            dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
            return dialog;
        },
        [this](int result) {
            if (result == QDialog::Accepted)
                print();
        });
}

void CardPrinter::beginPageLayout()
{
    m_sheets.begin(QString(), [this](QWidget *parent) { return new PageLayoutDialog(&printer(), parent); },
                   {});
}

Foundation::Result<void, CardPrinter::PrintError> CardPrinter::printCards()
{
    const Failure refused{PrintError::Refused, tr("The printer or the file did not take it.")};
    PrintedCard card(m_document.myLabelDictionary());
    // Fonts and distances of the page are those of the screen.
    printer().setResolution(card.page().logicalDpiX());
    const int lineHeight = card.page().fontMetrics().height();
    if (printer().width() < lineHeight || printer().height() < lineHeight)
        return Failure{PrintError::NoPlaceOnPaper,
                       tr("The margins leave no room on the paper. Change them in Page Setup, or choose "
                          "a larger paper.")};
    QPainter painter;
    if (!painter.begin(&printer()))
        return refused;
    bool isFirst = true;
    for (const auto &record : m_document.myArrayController()->selectedObjects()) {
        if (!std::exchange(isFirst, false) && !printer().newPage())
            return refused;
        card.show(record);
        if (!card.page().print(painter, printer()))
            return refused;
    }
    if (!painter.end())
        return refused;
    const QString path = printer().outputFileName();
    if (printer().outputFormat() != QPrinter::PdfFormat || !QFileInfo(path).isFile() || isWholePdf(path))
        return {};
    QFile::remove(path); // An incomplete PDF cannot be opened.
    return Failure{PrintError::Incomplete,
                   tr("The file could not be written completely. The disk may be full.")};
}

void CardPrinter::print()
{
    const auto printed = printCards();
    if (printed)
        return;
    const Foundation::Alert alert{tr("The contact could not be printed"), printed.words(), {{tr("OK")}}};
    m_sheets.begin(QString(), [alert](QWidget *parent) { return new AlertDialog(alert, parent); }, {});
}
