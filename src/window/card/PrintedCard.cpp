#include "window/card/PrintedCard.h"

#include "ui_MyDocument.h"
#include "window/card/RecordCard.h"
#include "window/controls/InterfaceStyle.h"

using Foundation::ArrayController;

PrintedCard::PrintedCard(const Foundation::Ref<Foundation::Dictionary> &labels)
    : m_labels(labels)
    , m_ui(std::make_unique<Ui::MyDocument>())
    , m_dispatcher(nullptr, [](const QString &) { return QList<QObject *>(); })
    , m_binder(this, m_dispatcher, [](const ArrayController *, int) {})
{
    m_ui->setupUi(&m_window);
    styleInterface(&m_window);
    m_ui->categoryView->setMyArrayController(&m_records);
    new RecordCard(
        &m_records, {m_ui->recordName, m_ui->recordSubtitle},
        [](QWidget *, const QString &, const WriteText &) {}, &m_window);
    m_binder.bind(m_ui->whiteView);
}

PrintedCard::~PrintedCard() = default;

void PrintedCard::show(const ArrayController::Object &record)
{
    const auto content = Foundation::Array::create();
    content->values.emplace_back(record);
    m_records.setContent(content);
    m_ui->categoryView->refresh();
}

VLWhiteView &PrintedCard::page()
{
    return *m_ui->whiteView;
}
