#include "browse/RecordName.h"
#include "support/TestServices.h"
#include "window/ColorWell.h"
#include "window/ControlAccess.h"
#include "window/DesktopColorPanel.h"
#include "window/RecordTable.h"
#include "window/RecordTableModel.h"
#include "window/RoughAccount.h"
#include "window/WindowTest.h"

#include <QHeaderView>
#include <QWheelEvent>

#include <random>

namespace
{

using Leave = RoughAccount::Leave;

constexpr int StepsOfAWalk = 1500;
constexpr qsizetype StepsTold = 40;    // of the last ones, if something is wrong
constexpr qsizetype MostContacts = 12; // or the walk would become slow
constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Ctrl | Shift;

using KeyPress = std::pair<Qt::Key, Qt::KeyboardModifiers>;

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

// A user without a plan, who works in two documents by keys, clicks and turns of the wheel in their windows.
// After each act both documents are held against a plain account. VEXAREL_ROUGH_SEED chooses another walk,
// VEXAREL_ROUGH_STEPS its length.
class RoughHandsTest : public WindowTest
{
protected:
    struct Place
    {
        QPointer<MyDocument> document;
        RoughAccount account;
        QString path;
        bool isReadAnew = false;
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
            place.account.begin(*place.document);
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
    DocumentMainWindow *mainWindow() const { return controllerOf(places[here])->mainWindow(); }
    RecordTable *list() const { return mainWindow()->findChild<RecordTable *>(u"myTableView"_qs); }
    FilteringArrayController *records() const { return places[here].document->myArrayController(); }
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
    static QSet<int> selectedIn(const Foundation::ArrayController &objects, const RoughAccount &account)
    {
        QSet<int> ids;
        for (const auto &object : objects.selectedObjects())
            ids.insert(account.idOf(object));
        return ids;
    }
    QSet<int> selected() const { return selectedIn(*records(), places[here].account); }
    QSet<int> selectedCategory() const
    {
        return selectedIn(*places[here].document->myCategoryArrayController(), places[here].account);
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
        // A letter with Ctrl is no text, as far as keyboards go.
        if (key.second.testFlag(Qt::ControlModifier))
            QTest::sendKeyEvent(QTest::Click, front()->windowHandle(), key.first, QString(), key.second, -1);
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

    // What a key may change that goes to the control with the focus.
    Leave leaveOfFocus() const
    {
        Leave leave;
        const QWidget *focus = QApplication::focusWidget();
        if (!focus || places[here].document->isEncrypted())
            return leave;
        if (qobject_cast<QColorDialog *>(front()))
            return leaveOfPanel();
        leave.key = focus->objectName();
        const auto &keys = contactTextKeys();
        const auto isKey = [&](const auto &key) { return key.name() == leave.key; };
        if (leave.key == u"isCompany" || std::any_of(keys.begin(), keys.end(), isKey)) {
            leave.ids = selected();
        } else if (leave.key == u"category" && selected().size() == 1) {
            leave.ids = selected();
        } else if (leave.key == u"categoryName") {
            leave.ids = selectedCategory();
            leave.key = CategoryKey::cat_category.name();
        } else if (leave.key.endsWith(u"Caption") || leave.key.startsWith(u"open")) {
            leave.ids = {RoughAccount::Captions};
            leave.key.remove(u"Caption"_qs);
        }
        leave.categoriesMore = leave.key == u"addCategory" ? 1 : 0;
        leave.categoriesLess = leave.key == u"removeCategory" ? 1 : 0;
        return leave;
    }
    // The colour of the well that has the panel.
    Leave leaveOfPanel() const
    {
        Leave leave;
        for (const auto *well : mainWindow()->findChildren<ColorWell *>()) {
            if (!well->isActive())
                continue;
            leave.ids = selectedCategory();
            leave.key = well->objectName() == u"backColorWell" ? CategoryKey::cat_backColor.name()
                                                               : CategoryKey::cat_textColor.name();
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
        const auto rows = places[here].document->categoryArrayControllerForMenu()->arrangedObjects();
        return QString::number(places[here].account.idOf(rows[std::size_t(popUp->currentIndex())]));
    }
    void strikeIntoFocus(const KeyPress &key)
    {
        Leave leave = leaveOfFocus();
        const QPointer<QWidget> focus = QApplication::focusWidget();
        const QString before = shownBy(focus);
        const QSet<int> selectedBefore = selected();
        strike(key);
        if (focus && !leave.ids.isEmpty() && !qobject_cast<QColorDialog *>(focus->window())) {
            leave.text = shownBy(focus);
            // What shows the same as before has changed nothing.
            if (leave.text == before || (leave.ids == selectedBefore && selected() != selectedBefore))
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
    void undoOrRedo()
    {
        const KeyPress key{Qt::Key_Z, random(3) ? Ctrl : CtrlShift};
        if (front() != mainWindow())
            return strikeIntoFocus(key); // A field of the sheet has its own steps.
        const QSet<int> before = selected();
        Leave leave;
        leave.isUndo = true;
        leave.appear = leave.vanish = 1;
        strike(key);
        check(leave);
        if (key.second == Ctrl && selected() != before)
            expectNoFieldHasFocus("an undo changed what is selected");
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
        auto *field = mainWindow()->findChild<QWidget *>(oneOf(contactTextKeys()).name());
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
        const qsizetype before = places[here].account.recordCount();
        if (before >= MostContacts)
            return;
        Leave leave;
        leave.appear = 1;
        strike({Qt::Key_N, CtrlShift});
        check(leave);
        const auto &all = records()->contentObjects();
        if (places[here].account.recordCount() > before && records()->arrangedIndexOf(all.back()) < 0)
            expectNoFieldHasFocus("a contact was added that is not shown");
    }
    void duplicateOne()
    {
        if (places[here].account.recordCount() >= MostContacts)
            return;
        Leave leave;
        leave.copied = selected();
        leave.appear = leave.copied.isEmpty() ? 0 : 1;
        strike({Qt::Key_D, Ctrl});
        check(leave);
    }
    void goToAndStrike(const QString &name, const KeyPress &key)
    {
        mainWindow()->findChild<QWidget *>(name)->setFocus();
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
        places[here].document->lockAutomatically();
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
        controllerOf(place)->makeKeyAndOrderFront();
        settle();
        check({});
    }
    void goToOther()
    {
        here = 1 - here;
        controllerOf(places[here])->makeKeyAndOrderFront();
        settle();
        check({});
    }

    // The same in a sheet, an alert or the colour panel.
    void useSheet()
    {
        if (auto *panel = qobject_cast<QColorDialog *>(front()))
            return usePanel(panel);
        if (qobject_cast<AlertDialog *>(front()))
            return answerAlert();
        static constexpr Act acts[] = {
            {2, &RoughHandsTest::strikeSomeKey}, {2, &RoughHandsTest::typeSomething},
            {1, &RoughHandsTest::turnWheel},     {4, &RoughHandsTest::clickControl},
            {1, &RoughHandsTest::lockByItself},  {1, &RoughHandsTest::goToOther}};
        chooseOf(acts);
    }
    void clickControl()
    {
        QList<QWidget *> controls = front()->findChildren<QWidget *>();
        controls.removeIf([this](const QWidget *control) {
            return control->window() != front() || control->focusPolicy() == Qt::NoFocus;
        });
        QWidget *control = oneOf(controls);
        const QString name = control->objectName();
        Leave leave;
        leave.categoriesMore = name == u"addCategory" ? 1 : 0;
        leave.categoriesLess = name == u"removeCategory" ? 1 : 0;
        if (name.startsWith(u"open")) {
            leave.ids = {RoughAccount::Captions};
            leave.key = name;
        }
        click(control, control->rect().center());
        check(leave);
    }
    void usePanel(QColorDialog *panel)
    {
        if (random(3) == 0)
            return strikeIntoFocus({Qt::Key_Escape, {}});
        const Leave leave = leaveOfPanel();
        panel->setCurrentColor(QColor(random(256), random(256), random(256)));
        settle();
        check(leave);
        panel->parentWidget()->activateWindow();
        settle();
    }
    void answerAlert()
    {
        QPushButton *button = oneOf(front()->findChildren<QPushButton *>());
        note(titleWithoutMnemonic(button->text()));
        Leave leave;
        const bool deletes = titleWithoutMnemonic(button->text()) == u"Delete Contact";
        if (deletes && records()->canRemove()) {
            leave.vanish = 1;
            leave.vanishing = {places[here].account.idOf(records()->selectedObjects().front())};
        }
        const qsizetype before = places[here].account.recordCount();
        click(button, button->rect().center());
        check(leave);
        if (places[here].account.recordCount() != before - leave.vanish)
            wrong(u"the contact was not deleted"_qs);
    }
    void useLocked()
    {
        mainWindow()->findChild<QWidget *>(u"passwordToDecryptField"_qs)->setFocus();
        switch (random(6)) {
        case 0:
            return goToOther();
        case 1:
            return strikeSomeKey();
        case 2:
            return undoOrRedo();
        default:
            strike({Qt::Key_A, Ctrl});
            type(random(4) ? password : u"wrong horse"_qs);
            strikeIntoFocus({Qt::Key_Return, {}});
        }
    }

    template <class Acts>
    void chooseOf(const Acts &acts)
    {
        int all = 0;
        for (const Act &act : acts)
            all += act.weight;
        int left = random(all);
        for (const Act &act : acts) {
            left -= act.weight;
            if (left < 0)
                return (this->*act.run)();
        }
    }
    // Chooses what to do next by what stands in front.
    void step()
    {
        static constexpr Act acts[] = {
            {14, &RoughHandsTest::typeSomething}, {16, &RoughHandsTest::strikeSomeKey},
            {8, &RoughHandsTest::undoOrRedo},     {12, &RoughHandsTest::clickRow},
            {12, &RoughHandsTest::clickField},    {1, &RoughHandsTest::clickHead},
            {4, &RoughHandsTest::addOne},         {2, &RoughHandsTest::duplicateOne},
            {4, &RoughHandsTest::deleteOne},      {3, &RoughHandsTest::chooseFilter},
            {3, &RoughHandsTest::chooseCategory}, {1, &RoughHandsTest::callCaptions},
            {6, &RoughHandsTest::turnWheel},      {1, &RoughHandsTest::lockByItself},
            {1, &RoughHandsTest::openAgain},      {3, &RoughHandsTest::goToOther}};
        steps.append(u"%1 in %2:"_qs.arg(steps.size()).arg(here));
        while (QWidget *popUp = QApplication::activePopupWidget())
            popUp->close();
        if (front() != QApplication::activeWindow())
            controllerOf(places[here])->makeKeyAndOrderFront();
        const bool isLocked = places[here].document->isEncrypted();
        if (isLocked && front() == mainWindow())
            useLocked();
        else if (front() != mainWindow() && (isLocked || random(12)))
            useSheet();
        else
            chooseOf(acts);
        note(u"→ "_qs +
             (QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString()));
    }

    // Holds both documents against their accounts; the current one may have changed as far as the act may.
    void check(const Leave &leave)
    {
        for (Place &place : places) {
            if (!place.document)
                return wrong(u"a document has gone"_qs);
            if (place.document->isEncrypted()) {
                place.isReadAnew = true;
                continue;
            }
            const bool isHere = &place == &places[here];
            const QStringList found =
                std::exchange(place.isReadAnew, false)
                    ? place.account.rebind(*place.document)
                    : place.account.differences(*place.document, isHere ? leave : Leave());
            for (const QString &difference : found)
                wrong(difference);
            checkForm(place);
            checkList(place);
        }
    }
    // Each field shows what the selected contacts have in common.
    void checkForm(const Place &place)
    {
        const QSet<int> ids = selectedIn(*place.document->myArrayController(), place.account);
        const QWidget *window = controllerOf(place)->mainWindow();
        for (const auto &field : contactTextKeys()) {
            const QString key = field.name();
            QString common = ids.isEmpty() ? QString() : place.account.texts(*ids.begin()).value(key);
            for (const int id : ids) {
                if (place.account.texts(id).value(key) != common)
                    common.clear();
            }
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
        if (marked != selectedIn(shown, place.account))
            wrong(u"the list marks other contacts than the form shows"_qs);
    }
    void expectNoFieldHasFocus(const char *when)
    {
        for (const auto &key : contactTextKeys()) {
            if (mainWindow()->findChild<QWidget *>(key.name())->hasFocus())
                wrong(u"%1 has the focus after %2"_qs.arg(key.name(), QLatin1String(when)));
        }
    }
    void wrong(const QString &difference)
    {
        const QStringList last = steps.mid(std::max<qsizetype>(0, steps.size() - StepsTold));
        ADD_FAILURE() << difference.toStdString() << "\nin document " << here
                      << " with VEXAREL_ROUGH_SEED=" << seed << " after\n"
                      << last.join(u'\n').toStdString();
    }

    RecordingWorkspace workspace; // No address is really opened.
    const int seed = numberFromEnvironment("VEXAREL_ROUGH_SEED", 1);
    std::mt19937 generator{std::mt19937::result_type(seed)};
    Place places[2];
    std::size_t here = 0;
    QStringList steps;
};

TEST_F(RoughHandsTest, NothingIsLostOrMixedUp)
{
    const int count = numberFromEnvironment("VEXAREL_ROUGH_STEPS", StepsOfAWalk);
    for (int i = 0; i < count && !HasFailure(); ++i)
        step();
}

} // namespace
