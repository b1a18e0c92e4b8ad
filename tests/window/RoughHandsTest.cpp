#include "browse/RecordName.h"
#include "support/TestServices.h"
#include "window/RoughAccount.h"
#include "window/WindowTest.h"
#include "window/binding/ControlAccess.h"
#include "window/list/RecordTable.h"
#include "window/list/RecordTableModel.h"
#include "window/sheets/AlertDialog.h"

#include <QColorDialog>
#include <QHeaderView>
#include <QWheelEvent>

#include <random>

namespace
{

using Leave = RoughAccount::Leave;
using KeyPress = std::pair<Qt::Key, Qt::KeyboardModifiers>;

constexpr qsizetype StepsTold = 40;    // of the last ones, if something is wrong
constexpr qsizetype MostContacts = 12; // or the walk would become slow
constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Ctrl | Shift;

// Those that come more often stand twice.
constexpr KeyPress someKeys[] = {
    {Qt::Key_Tab, {}},     {Qt::Key_Backtab, Shift}, {Qt::Key_Escape, {}},   {Qt::Key_Up, {}},
    {Qt::Key_Down, {}},    {Qt::Key_Home, {}},       {Qt::Key_End, {}},      {Qt::Key_Return, {}},
    {Qt::Key_Space, {}},   {Qt::Key_Backspace, {}},  {Qt::Key_Delete, {}},   {Qt::Key_F2, {}},
    {Qt::Key_Down, Shift}, {Qt::Key_A, Ctrl},        {Qt::Key_X, Ctrl},      {Qt::Key_V, Ctrl},
    {Qt::Key_F, Ctrl},     {Qt::Key_F, Ctrl},        {Qt::Key_F, CtrlShift}, {Qt::Key_F, CtrlShift},
    {Qt::Key_K, Ctrl},     {Qt::Key_K, Ctrl},        {Qt::Key_S, Ctrl},      {Qt::Key_L, Ctrl},
};

int numberFromEnvironment(const char *name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

bool isFieldOfForm(const QString &name)
{
    const auto &keys = contactTextKeys();
    return std::any_of(keys.begin(), keys.end(), [&](const auto &key) { return key.name() == name; });
}

// A user without a plan, who works in two documents by keys, clicks and turns of the wheel in their windows.
// After each act both documents are held against a plain account. VEXAREL_ROUGH_SEED chooses another walk,
// VEXAREL_ROUGH_STEPS its length; scripts/rough-hands goes on for as long as one likes.
class RoughHandsTest : public WindowTest
{
protected:
    struct Place
    {
        QPointer<MyDocument> document;
        RoughAccount account;
        QString path;
        bool isReadAgain = false;
    };
    struct Act
    {
        int weight;
        void (RoughHandsTest::*run)();
    };

    void SetUp() override
    {
        for (Place &place : places) {
            makeProtectedDocument();
            place.document = document();
            place.path = pathOf(u"%1.vexcards"_qs.arg(&place - places));
            chooseNextPath(place.path);
            (void)place.account.differences(*place.document, {}); // What is there counts.
        }
        for (here = 0; here < 2; ++here) {
            steps.append(u"two contacts"_qs);
            controllerOf(places[here])->makeKeyAndOrderFront();
            for (int contact = 0; contact < 2; ++contact) {
                addOne();
                typeSomething();
            }
        }
        here = 1;
    }

    int random(qsizetype below) { return int(generator() % std::mt19937::result_type(below)); }
    template <class List>
    auto oneOf(const List &list)
    {
        return std::data(list)[random(qsizetype(std::size(list)))];
    }
    void note(const QString &what) { steps.last() += u' ' + what; }

    DocumentWindowController *controllerOf(const Place &place) const
    {
        return application.windowOf(place.document);
    }
    MyDocument &current() const { return *places[here].document; }
    const RoughAccount &account() const { return places[here].account; }
    DocumentMainWindow *mainWindow() const { return controllerOf(places[here])->mainWindow(); }
    QWidget *child(const QString &name) const { return mainWindow()->findChild<QWidget *>(name); }
    RecordTable *list() const { return mainWindow()->findChild<RecordTable *>(u"myTableView"_qs); }
    QSet<int> selected() const { return account().selectedIn(*current().myArrayController()); }
    QSet<int> selectedCategory() const
    {
        return account().selectedIn(*current().myCategoryArrayController());
    }
    // What stands in front of the current document: its colour panel, its sheet, or the window itself.
    QWidget *front() const
    {
        QWidget *active = QApplication::activeWindow();
        for (QObject *owner = active; owner; owner = owner->parent()) {
            if (owner == mainWindow())
                return active;
        }
        return mainWindow();
    }

    void settle()
    {
        for (int turn = 0; turn < 4; ++turn)
            runEvents();
        // What a window manager does when a dialog goes.
        if (places[here].document && !QApplication::activeWindow())
            controllerOf(places[here])->makeKeyAndOrderFront();
        runEvents();
    }
    void strike(const KeyPress &key)
    {
        note(QKeySequence(int(key.first) | int(key.second)).toString(QKeySequence::PortableText));
        if (key.second & Ctrl) // With the text that a keyboard gives, which no pop-up searches for.
            QTest::sendKeyEvent(QTest::Click, front()->windowHandle(), key.first, QChar(key.first & 0x1f),
                                key.second);
        else
            QTest::keyClick(front()->windowHandle(), key.first, key.second);
        settle();
    }
    void click(QWidget *control, QPoint point, Qt::KeyboardModifiers modifiers = {})
    {
        note(u"click "_qs + control->objectName());
        if (control->isVisible() && control->visibleRegion().contains(point))
            QTest::mouseClick(control->window()->windowHandle(), Qt::LeftButton, modifiers,
                              control->mapTo(control->window(), point));
        settle();
    }

    // What a key or a click may change that goes to the control.
    Leave leaveOf(const QWidget *control) const
    {
        Leave leave;
        if (!control || current().isEncrypted())
            return leave;
        leave.key = control->objectName();
        if (leave.key == u"addCategory") {
            leave.categoriesMore = 1;
        } else if (leave.key == u"removeCategory") {
            leave.vanishing = selectedCategory();
        } else if (leave.key == u"categoryName") {
            leave.ids = selectedCategory();
            leave.key = CategoryKey::cat_category.name();
        } else if (leave.key.endsWith(u"Caption") || leave.key.startsWith(u"open")) {
            leave.ids = {RoughAccount::Captions};
            leave.key.remove(u"Caption"_qs);
        } else if (isFieldOfForm(leave.key) || leave.key == u"isCompany" || selected().size() == 1) {
            leave.ids = selected();
        }
        return leave;
    }
    QString shownBy(const QWidget *control) const
    {
        if (const auto *line = qobject_cast<const QLineEdit *>(control))
            return textOfField(line);
        if (const auto *text = qobject_cast<const QPlainTextEdit *>(control))
            return textOfField(text);
        if (const auto *box = qobject_cast<const QCheckBox *>(control))
            return box->checkState() == Qt::PartiallyChecked ? QString() : QString::number(box->isChecked());
        const auto *popUp = qobject_cast<const QComboBox *>(control);
        if (!popUp || popUp->objectName() != u"category" || popUp->currentIndex() < 0)
            return {};
        const auto rows = current().categoryArrayControllerForMenu()->arrangedObjects();
        return QString::number(account().idOf(rows[std::size_t(popUp->currentIndex())]));
    }
    void strikeIntoFocus(const KeyPress &key)
    {
        const QPointer<QWidget> focus = QApplication::focusWidget();
        Leave leave = leaveOf(focus);
        const QString before = shownBy(focus);
        strike(key);
        if (key == KeyPress(Qt::Key_F, CtrlShift))
            fieldBefore = nullptr; // The first name may go on with a new contact that was hidden.
        if (focus && !leave.ids.isEmpty()) {
            leave.text = shownBy(focus);
            // A control that shows the same text as before, or another object, has changed nothing.
            if (leave.text == before || leaveOf(focus).ids != leave.ids)
                leave.ids.clear();
        }
        check(leave);
    }

    // The acts.
    void typeSomething()
    {
        static constexpr Qt::Key letters[] = {Qt::Key_A, Qt::Key_B, Qt::Key_Z, Qt::Key_E, Qt::Key_7};
        for (int count = 1 + random(3); count > 0; --count)
            strikeIntoFocus({oneOf(letters), {}});
    }
    void strikeSomeKey() { strikeIntoFocus(oneOf(someKeys)); }
    void undoOrRedo() { undo(random(3) ? Ctrl : CtrlShift); }
    void undo(Qt::KeyboardModifiers modifiers)
    {
        const QSet<int> any{account().contacts().begin(), account().contacts().end()};
        const Leave leave{.contactsMore = 1, .vanishing = any, .isUndo = true};
        strike({Qt::Key_Z, modifiers});
        check(leave);
    }
    void typeAndUndo()
    {
        if (random(3) == 0)
            goToAndStrike(u"myTableView"_qs, {Qt::Key_A, Ctrl});
        const QString key = oneOf(contactTextKeys()).name();
        child(key)->setFocus();
        if (!child(key)->hasFocus())
            return;
        QMap<int, QString> before;
        for (const int id : selected())
            before[id] = account().texts(id).value(key);
        typeSomething();
        const QString typed = shownBy(child(key));
        undo(Ctrl);
        for (const auto &[id, text] : before.asKeyValueRange()) {
            if (text != typed && account().texts(id).value(key) == typed)
                wrong(u"%1 of %2 is still “%3” after the undo"_qs.arg(key).arg(id).arg(typed));
        }
    }
    void clickRow()
    {
        static constexpr Qt::KeyboardModifiers modifiers[] = {{}, {}, {}, Ctrl, Shift};
        const QModelIndex index = list()->model()->index(random(list()->model()->rowCount() + 1), 1);
        click(list()->viewport(), list()->visualRect(index).center(), oneOf(modifiers));
        check({});
    }
    void clickField()
    {
        QWidget *field = child(oneOf(contactTextKeys()).name());
        click(field, field->rect().center());
        check({});
    }
    void clickHead()
    {
        QHeaderView *head = list()->horizontalHeader();
        click(head->viewport(), {head->sectionPosition(random(2)) + 20, head->height() / 2});
        check({});
    }
    void addOne()
    {
        const qsizetype before = account().contacts().size();
        if (before >= MostContacts)
            return deleteOne();
        strike({Qt::Key_N, CtrlShift});
        fieldBefore = nullptr; // The same field may go on with the new contact.
        check({.contactsMore = 1});
        if (account().contacts().size() > before && selected() != QSet<int>{account().contacts().last()} &&
            isFieldOfForm(nameOfFocus()))
            wrong(u"the focus is in a field that does not show the new contact"_qs);
    }
    void duplicateOne()
    {
        if (account().contacts().size() >= MostContacts)
            return deleteOne();
        const Leave leave{.contactsMore = selected().isEmpty() ? 0 : 1};
        strike({Qt::Key_D, Ctrl});
        check(leave);
    }
    void goToAndStrike(const QString &name, const KeyPress &key)
    {
        child(name)->setFocus();
        strikeIntoFocus(key);
    }
    void deleteOne() { goToAndStrike(u"myTableView"_qs, {Qt::Key_Delete, {}}); }
    void chooseFilter() { goToAndStrike(u"myActionPopup"_qs, {random(3) ? Qt::Key_Down : Qt::Key_Home, {}}); }
    void chooseCategory() { goToAndStrike(u"category"_qs, {random(2) ? Qt::Key_Down : Qt::Key_Up, {}}); }
    void callCaptions()
    {
        mainWindow()->findChild<QAction *>(u"editLabelsItem"_qs)->trigger();
        settle();
        check({});
    }
    void turnWheel()
    {
        QWidget *over = oneOf(front()->findChildren<QWidget *>());
        note(u"wheel over "_qs + over->objectName());
        const QPoint place = over->mapTo(front(), over->rect().center());
        QWheelEvent event(place, front()->mapToGlobal(place), {}, {0, random(2) ? 120 : -120}, Qt::NoButton,
                          {}, Qt::NoScrollPhase, false);
        const QSet<int> before = selected();
        if (over->isVisible())
            QCoreApplication::sendEvent(front()->windowHandle(), &event);
        settle();
        check({});
        if (selected() != before)
            wrong(u"the wheel changed the selection"_qs);
    }
    void lockByItself()
    {
        current().lockAutomatically();
        settle();
        check({});
    }
    void openAgain()
    {
        Place &place = places[here];
        strikeIntoFocus({Qt::Key_S, Ctrl});
        if (front() != mainWindow() || place.document->isDocumentEdited() || place.document->isEncrypted())
            return;
        strike({Qt::Key_W, Ctrl});
        if (!eventually([&place] { return !place.document; }))
            return wrong(u"the saved document does not close"_qs);
        application.documentController().openDocument(place.path);
        place.document = document();
        goTo(here);
    }
    void goToOther() { goTo(1 - here); }
    void goTo(std::size_t place)
    {
        here = place;
        controllerOf(places[here])->makeKeyAndOrderFront();
        settle();
        check({});
    }
    void clickControl()
    {
        QList<QWidget *> controls = front()->findChildren<QWidget *>();
        controls.removeIf([this](const QWidget *control) {
            return control->window() != front() || control->focusPolicy() == Qt::NoFocus;
        });
        QWidget *control = oneOf(controls);
        const Leave leave = leaveOf(control);
        click(control, control->rect().center());
        check(leave);
    }
    void answerAlert()
    {
        QPushButton *button = oneOf(front()->findChildren<QPushButton *>());
        const QString title = titleWithoutMnemonic(button->text());
        note(title);
        Leave leave;
        if (title == u"Delete Contact" && !selected().isEmpty())
            leave.vanishing = {account().idOf(current().myArrayController()->selectedObjects().front())};
        const qsizetype before = account().contacts().size();
        click(button, button->rect().center());
        check(leave);
        if (account().contacts().size() != before - leave.vanishing.size())
            wrong(u"the contact was not deleted"_qs);
    }
    void unlockIt()
    {
        strike({Qt::Key_A, Ctrl});
        type(random(4) ? password : u"wrong horse"_qs);
        strikeIntoFocus({Qt::Key_Return, {}});
    }

    template <class Acts>
    void chooseOf(const Acts &acts)
    {
        QList<Act> weighted;
        for (const Act &act : acts)
            weighted.append(QList<Act>(act.weight, act));
        (this->*oneOf(weighted).run)();
    }
    // Chooses what to do next by what stands in front.
    void step()
    {
        using Self = RoughHandsTest;
        static constexpr Act actsInSheet[] = {{2, &Self::strikeSomeKey}, {2, &Self::typeSomething},
                                              {1, &Self::turnWheel},     {4, &Self::clickControl},
                                              {1, &Self::lockByItself},  {1, &Self::goToOther}};
        static constexpr Act actsInLockedWindow[] = {
            {1, &Self::goToOther}, {1, &Self::strikeSomeKey}, {1, &Self::undoOrRedo}, {3, &Self::unlockIt}};
        static constexpr Act acts[] = {
            {14, &Self::typeSomething}, {16, &Self::strikeSomeKey}, {4, &Self::typeAndUndo},
            {8, &Self::undoOrRedo},     {12, &Self::clickRow},      {12, &Self::clickField},
            {1, &Self::clickHead},      {4, &Self::addOne},         {2, &Self::duplicateOne},
            {4, &Self::deleteOne},      {3, &Self::chooseFilter},   {3, &Self::chooseCategory},
            {1, &Self::callCaptions},   {6, &Self::turnWheel},      {1, &Self::lockByItself},
            {1, &Self::openAgain},      {3, &Self::goToOther}};
        steps.append(u"%1 in %2:"_qs.arg(steps.size()).arg(here));
        while (QWidget *popUp = QApplication::activePopupWidget())
            popUp->close();
        if (front() != QApplication::activeWindow())
            controllerOf(places[here])->makeKeyAndOrderFront();
        const bool isLocked = current().isEncrypted();
        if (isLocked && front() == mainWindow()) {
            child(u"passwordToDecryptField"_qs)->setFocus();
            chooseOf(actsInLockedWindow);
        } else if (qobject_cast<QColorDialog *>(front())) {
            strikeIntoFocus({Qt::Key_Escape, {}});
        } else if (qobject_cast<AlertDialog *>(front())) {
            answerAlert();
        } else if (front() != mainWindow() && (isLocked || random(12))) {
            chooseOf(actsInSheet);
        } else {
            chooseOf(acts);
        }
        note(u"→ "_qs + nameOfFocus());
    }

    static QString nameOfFocus()
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }
    // Holds both documents against their accounts; the current one may have changed as far as the act may.
    void check(const Leave &leave)
    {
        for (Place &place : places) {
            if (!place.document)
                return wrong(u"a document has gone"_qs);
            if (place.document->isEncrypted()) {
                place.isReadAgain = true;
                continue;
            }
            const bool isHere = &place == &places[here];
            const QStringList found =
                std::exchange(place.isReadAgain, false)
                    ? place.account.differencesAfterReading(*place.document)
                    : place.account.differences(*place.document, isHere ? leave : Leave());
            for (const QString &difference : found)
                wrong(u"in document %1: "_qs.arg(&place - places) + difference);
            checkForm(place);
            checkList(place);
        }
        const bool isField = isFieldOfForm(nameOfFocus()) && !current().isEncrypted();
        QWidget *field = isField ? QApplication::focusWidget() : nullptr;
        if (field && field == fieldBefore && selected() != shownBefore)
            wrong(u"the field with the focus came to show other contacts"_qs);
        fieldBefore = field;
        shownBefore = selected();
    }
    // Each field shows what the selected contacts have in common.
    void checkForm(const Place &place)
    {
        const QSet<int> ids = place.account.selectedIn(*place.document->myArrayController());
        const QWidget *window = controllerOf(place)->mainWindow();
        for (const auto &field : contactTextKeys()) {
            const QString key = field.name();
            QSet<QString> texts;
            for (const int id : ids)
                texts.insert(place.account.texts(id).value(key));
            const QString common = texts.size() == 1 ? *texts.begin() : QString();
            const QString shown = shownBy(window->findChild<QWidget *>(key));
            if (shown != common)
                wrong(u"field %1 shows “%2” instead of “%3”"_qs.arg(key, shown, common));
        }
    }
    void checkList(const Place &place)
    {
        const auto *table = controllerOf(place)->mainWindow()->findChild<RecordTable *>(u"myTableView"_qs);
        const FilteringArrayController &shown = *place.document->myArrayController();
        QSet<int> marked;
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            const auto &record = shown.arrangedObjects()[std::size_t(row)];
            const QModelIndex index = table->model()->index(row, RecordTableModel::NameColumn);
            if (index.data().toString() != displayedNameOfRecord(*record))
                wrong(u"row %1 is named “%2”"_qs.arg(row).arg(index.data().toString()));
            if (table->selectionModel()->isSelected(index))
                marked.insert(place.account.idOf(record));
        }
        if (marked != place.account.selectedIn(shown))
            wrong(u"the list marks other contacts than the form shows"_qs);
    }
    void wrong(const QString &difference)
    {
        const QStringList last = steps.mid(std::max<qsizetype>(0, steps.size() - StepsTold));
        ADD_FAILURE() << difference.toStdString() << "\nwith VEXAREL_ROUGH_SEED=" << seed << " after\n"
                      << last.join(u'\n').toStdString();
    }

    RecordingWorkspace workspace; // No address is really opened.
    const int seed = numberFromEnvironment("VEXAREL_ROUGH_SEED", 1);
    std::mt19937 generator{std::mt19937::result_type(seed)};
    Place places[2];
    std::size_t here = 0;
    QWidget *fieldBefore = nullptr; // of the form, with the focus at the last check
    QSet<int> shownBefore;
    QStringList steps;
};

TEST_F(RoughHandsTest, NothingIsLostOrMixedUp)
{
    const int count = numberFromEnvironment("VEXAREL_ROUGH_STEPS", 1500);
    for (int i = 0; i < count && !HasFailure(); ++i)
        step();
}

} // namespace
