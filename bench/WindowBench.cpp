#include "SampleContacts.h"
#include "core/RecordModel.h"
#include "window/application/Application.h"
#include "window/controls/SearchField.h"
#include "window/list/RecordTable.h"

#include <benchmark/benchmark.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStandardPaths>

// Measures what a user sees of a document in its window: the time from a key or mouse event until the list is
// painted again, with accessibility switched on. The argument is the number of records. For comparison,
// `repaint` paints the same list without a change. Works on a screen or with the offscreen platform.

namespace
{

// Notices when a widget has painted itself.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget *widget) { widget->installEventFilter(this); }
    // Processes events until the widget was painted.
    void await()
    {
        m_isPainted = false;
        while (!m_isPainted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_isPainted = true; // It is on the screen at the end of this turn.
        return QObject::eventFilter(object, event);
    }

private:
    bool m_isPainted = false;
};

struct OpenWindow
{
    explicit OpenWindow(qint64 recordCount)
        : content(sampleDocument(int(recordCount)))
        , document(static_cast<MyDocument *>(application.documentController().newDocument()))
    {
        document->setPlainPassword(QStringLiteral("correct horse"));
        DocumentMainWindow *window = application.windowOf(document)->mainWindow();
        table = window->findChild<RecordTable *>();
        field = window->findChild<SearchField *>();
        window->show();
        while (!window->isActiveWindow() && QGuiApplication::platformName() != u"offscreen")
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    // Measures the time from the records to the list on the screen.
    void show()
    {
        PaintWatch watch(table->viewport());
        document->setMyCategoryArray(content.myCategoryArray);
        document->setMyArray(content.myArray);
        document->decryptDone();
        watch.await();
    }
    void lock()
    {
        document->setMyArray(Foundation::Array::create());
        document->setIsEncrypted(true);
        for (int turn = 0; turn < 20; ++turn)
            QCoreApplication::processEvents();
    }
    void type(const QString &text)
    {
        PaintWatch watch(table->viewport());
        field->setText(text);
        watch.await();
    }

    Application application;
    DocumentState content;
    MyDocument *document;
    RecordTable *table;
    SearchField *field;
};

template <class Prepare, class Work>
void measure(benchmark::State &state, Prepare prepare, Work work)
{
    double longest = 0;
    for (auto iteration : state) {
        (void)iteration;
        prepare();
        QCoreApplication::processEvents();
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        longest = std::max(longest, elapsed.count());
    }
    state.counters["longest_ms"] = 1000 * longest;
}

void firstPaint(benchmark::State &state)
{
    OpenWindow open(state.range(0));
    measure(
        state, [&] { open.lock(); }, [&] { open.show(); });
}

// Until the locked view is shown and no work is left.
void lock(benchmark::State &state)
{
    OpenWindow open(state.range(0));
    measure(
        state, [&] { open.show(); },
        [&] {
            open.document->doLockDocument();
            QCoreApplication::processEvents();
        });
}

void keystroke(benchmark::State &state, const char *before, const char *text)
{
    OpenWindow open(state.range(0));
    open.show();
    measure(
        state, [&] { open.field->setText(QString::fromUtf8(before)); },
        [&] { open.type(QString::fromUtf8(text)); });
}

// Contacts with nothing but names, as in address books from telephones. All other fields are equal, so a
// comparison of the selected contacts never stops early.
void emptyFields(const DocumentState &content)
{
    for (const auto &entry : content.myArray->values) {
        for (const auto &key : contactTextKeys()) {
            if (key != RecordKey::firstName && key != RecordKey::lastName)
                entry.dictionary()->setValue(key, QStringLiteral(""));
        }
    }
}

void selectAll(benchmark::State &state, bool fieldsAreEmpty)
{
    OpenWindow open(state.range(0));
    if (fieldsAreEmpty)
        emptyFields(open.content);
    open.show();
    PaintWatch watch(open.table->viewport());
    measure(
        state, [&] { open.table->selectRow(0); },
        [&] {
            open.table->selectAll();
            watch.await();
        });
}

// Typing into the form while all contacts are selected.
void keystrokeInAll(benchmark::State &state, bool fieldsAreEmpty)
{
    OpenWindow open(state.range(0));
    if (fieldsAreEmpty)
        emptyFields(open.content);
    open.show();
    open.document->switchToEditMode();
    open.table->selectAll();
    auto *field = open.table->window()->findChild<QLineEdit *>(QStringLiteral("company"));
    PaintWatch watch(field);
    measure(
        state, [&] { field->setText(QStringLiteral("Acme")); },
        [&] {
            field->insert(QStringLiteral("!"));
            watch.await();
            QCoreApplication::processEvents(); // Deferred work would delay the next key.
        });
}

// The argument is the number of categories, of which the last is shown.
void fillCategoryPopUp(benchmark::State &state)
{
    OpenWindow open(1000);
    for (qint64 id = 9; id <= state.range(0); ++id)
        open.content.myCategoryArray->values.emplace_back(
            newCategoryRecord(QStringLiteral("Category %1").arg(id), id));
    open.show();
    open.document->myArrayController()->setCategoryString(QStringLiteral("Category %1").arg(state.range(0)));
    measure(
        state, [] {}, [&] { open.document->categoryCommands().synkCategorySubMenu({}); });
    QMenu *menu =
        open.table->window()->findChild<QAction *>(QStringLiteral("myCategorySuperMenuItem"))->menu();
    const auto start = std::chrono::steady_clock::now();
    Q_EMIT menu->aboutToShow();
    state.counters["menu_ms"] =
        1000 * std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void scroll(benchmark::State &state)
{
    OpenWindow open(state.range(0));
    open.show();
    QScrollBar *bar = open.table->verticalScrollBar();
    PaintWatch watch(open.table->viewport());
    int step = 0;
    measure(
        state, [] {},
        [&] {
            step = (step + 37) % std::max(1, bar->maximum() - 100);
            bar->setValue(step + 1);
            watch.await();
        });
}

void repaint(benchmark::State &state)
{
    OpenWindow open(state.range(0));
    open.show();
    measure(
        state, [] {}, [&] { open.table->viewport()->repaint(); });
}

// A contact with texts of this length in four fields. The limit is 50 ms for each field, independent of the
// length.
void firstPaintOfLongTexts(benchmark::State &state)
{
    OpenWindow open(1);
    const Foundation::Value text(QString(int(state.range(0)), u'x'));
    const auto record = open.content.myArray->values[0].dictionary();
    for (const auto &key :
         {RecordKey::firstName, RecordKey::company, RecordKey::addressWork, RecordKey::note})
        record->setValue(key, text);
    measure(
        state, [&] { open.lock(); }, [&] { open.show(); });
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(firstPaint)->Apply(sizes);
BENCHMARK(firstPaintOfLongTexts)->Arg(100)->Arg(4000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(lock)->Apply(sizes)->Arg(1000000);
BENCHMARK_CAPTURE(keystroke, absent, "quic", "quick q")->Apply(sizes);
BENCHMARK_CAPTURE(keystroke, frequent, "", "e")->Apply(sizes);
BENCHMARK_CAPTURE(keystroke, growing, "grac", "grace")->Apply(sizes);
BENCHMARK_CAPTURE(keystroke, cleared, "grace", "")->Apply(sizes);
BENCHMARK_CAPTURE(selectAll, full, false)->Apply(sizes);
BENCHMARK_CAPTURE(selectAll, mostlyEmpty, true)->Apply(sizes);
BENCHMARK_CAPTURE(keystrokeInAll, full, false)->Apply(sizes);
BENCHMARK_CAPTURE(keystrokeInAll, mostlyEmpty, true)->Apply(sizes);
BENCHMARK(fillCategoryPopUp)
    ->Arg(1000)
    ->Arg(4000)
    ->Arg(16000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(scroll)->Apply(sizes);
BENCHMARK(repaint)->Apply(sizes);

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    QAccessible::setActive(true);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
