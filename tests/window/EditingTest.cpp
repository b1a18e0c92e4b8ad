#include "window/WindowTest.h"
#include "window/accessibility/Announcer.h"
#include "window/list/RecordTable.h"

#include <QKeyEvent>

namespace
{

const QString zoe = u"Zoë Åström"_qs;
const QString boris = u"Борис Кант"_qs;

// What is typed, undone or chosen lands in the contact that the user sees, and in no other.
class EditingTest : public WindowTest
{
protected:
    void SetUp() override
    {
        makeProtectedDocument();
        addContact(u"Zoë"_qs, u"Åström"_qs);
        addContact(u"Борис"_qs, u"Кант"_qs);
        document()->undoManager().removeAllActions();
        document()->switchToViewMode();
        press(Qt::Key_Home);
    }
    RecordTable *list() const { return control<RecordTable>("myTableView"); }
    QLineEdit *firstName() const { return control<QLineEdit>("firstName"); }
    QPushButton *showAll() const { return control<QPushButton>("showAllButton"); }
    std::size_t contacts() const { return document()->myArrayController()->contentObjects().size(); }
    bool isHiddenContactTold() const { return control<QWidget>("hiddenContactNotice")->isVisible(); }
    void search(const QString &text) const
    {
        press(Qt::Key_F, Qt::ControlModifier);
        type(text);
    }
    void add() const { press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier); }
    void undo() const { press(Qt::Key_Z, Qt::ControlModifier); }
    // As the keyboard sends them while the key is held.
    void holdUndo(int repeats) const
    {
        for (int i = 0; i < repeats; ++i)
            QTest::simulateEvent(window()->windowHandle(), true, Qt::Key_Z, Qt::ControlModifier, QString(),
                                 true);
        runEvents();
    }
};

TEST_F(EditingTest, ANewContactThatTheFilterHidesIsToldOfAndTakesNoTyping)
{
    search(u"Zo"_qs);
    for (int i = 0; i < 2; ++i) { // The second time, the first one is still hidden.
        add();
        type(u"Eve"_qs);
        EXPECT_EQ(names(), QStringList{zoe});
        EXPECT_EQ(contacts(), 3U);
        EXPECT_EQ(QApplication::focusWidget(), showAll());
        EXPECT_TRUE(isHiddenContactTold());
        auto *announcer = window()->findChild<Announcer *>();
        EXPECT_EQ(announcer->accessibleName(), u"The new contact is hidden by this filter.");
        announcer->setAccessibleName({});
    }
    undo(); // Takes nothing that is hidden away.
    EXPECT_EQ(contacts(), 3U);
    EXPECT_TRUE(isHiddenContactTold());
    press(Qt::Key_Space);
    EXPECT_EQ(QApplication::focusWidget(), firstName());
    EXPECT_EQ(firstName()->selectedText(), u"First Name");
    type(u"Eve"_qs);
    EXPECT_EQ(names(), (QStringList{zoe, boris, u"Eve Last Name"_qs}));
    EXPECT_FALSE(isHiddenContactTold());
}

TEST_F(EditingTest, AHiddenContactIsNotToldOfAnyMoreOnceItIsFoundOrTheDocumentWasLocked)
{
    search(u"nobody"_qs);
    add();
    EXPECT_TRUE(isHiddenContactTold());
    search(u"First Name"_qs);
    EXPECT_EQ(names(), QStringList{u"First Name Last Name"_qs});
    EXPECT_FALSE(isHiddenContactTold());

    search(u"nobody"_qs);
    add();
    saveTo(u"hidden.vexcards"_qs);
    document()->doLockDocument();
    unlock(password);
    EXPECT_FALSE(isHiddenContactTold());
    EXPECT_EQ(contacts(), 4U);
}

TEST_F(EditingTest, AHeldKeyStopsAtTheFirstStepOfTheFieldAndANewPressGoesOnToTheList)
{
    add();
    type(u"Eve"_qs);
    undo();
    holdUndo(5);
    EXPECT_EQ(field("firstName"), u"First Name");
    EXPECT_EQ(contacts(), 3U);
    EXPECT_EQ(QApplication::focusWidget(), firstName());
    undo();
    EXPECT_EQ(names(), (QStringList{zoe, boris}));
    EXPECT_EQ(QApplication::focusWidget(), list());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(contacts(), 3U);
    EXPECT_EQ(QApplication::focusWidget(), list());
    holdUndo(5);
    EXPECT_EQ(contacts(), 3U);
}

TEST_F(EditingTest, ARepeatedKeyIsKnownByItsTimeWhereTheToolkitDoesNotSeeIt)
{
    const auto send = [this](QEvent::Type type, quint32 scanCode, quint64 time) {
        QKeyEvent event(type, Qt::Key_Z, Qt::ControlModifier, scanCode, 0, 0);
        event.setTimestamp(time);
        event.ignore();
        QApplication::sendEvent(list(), &event);
        return event.isAccepted();
    };
    send(QEvent::KeyRelease, 52, 7000);
    EXPECT_TRUE(send(QEvent::ShortcutOverride, 52, 7000));
    EXPECT_FALSE(send(QEvent::ShortcutOverride, 52, 7090)) << "pressed anew";
    EXPECT_FALSE(send(QEvent::ShortcutOverride, 53, 7000)) << "another key";
}

TEST_F(EditingTest, EditingBeginsInTheFirstName)
{
    const auto doubleClick = [this] {
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {},
                           list()->visualRect(list()->currentIndex()).center());
    };
    for (const auto &begin : std::initializer_list<std::function<void()>>{
             [this] { press(Qt::Key_Return); }, doubleClick, [this] { press(Qt::Key_F2); }}) {
        document()->switchToViewMode();
        ASSERT_EQ(QApplication::focusWidget(), list());
        begin();
        EXPECT_EQ(QApplication::focusWidget(), firstName());
        EXPECT_FALSE(firstName()->hasSelectedText()) << "what comes next must not replace it";
    }
}

TEST_F(EditingTest, TheFilterFollowsTheNameOfItsCategory)
{
    auto *popUp = control<QComboBox>("myActionPopup");
    popUp->setFocus();
    press(Qt::Key_End);
    press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_TRUE(sheetComes(u"myCategorySheet"_qs));
    for (const QString &name : {u""_qs, u"Friends"_qs}) {
        auto *field = control<QLineEdit>("categoryName");
        field->setFocus();
        field->selectAll();
        name.isEmpty() ? field->del() : type(name);
        EXPECT_EQ(document()->myArrayController()->arrangedObjects().size(), 2U);
    }
    dismiss(Qt::Key_Escape);
    document()->myArrayController()->rearrangeObjects();
    EXPECT_EQ(names(), (QStringList{zoe, boris}));
    EXPECT_EQ(popUp->currentText(), u"Friends");
    EXPECT_EQ(control<QLabel>("usedFilter")->text(), u"category \"Friends\"");

    // A filter that the user took away does not come back with the next name.
    for (const QString &name : {u""_qs, u"Colleagues"_qs}) {
        press(Qt::Key_K, Qt::ControlModifier);
        ASSERT_TRUE(sheetComes(u"myCategorySheet"_qs));
        auto *field = control<QLineEdit>("categoryName");
        field->setFocus();
        field->selectAll();
        name.isEmpty() ? field->del() : type(name);
        dismiss(Qt::Key_Escape);
        EXPECT_EQ(popUp->currentText(), u"Show All");
    }
}

} // namespace
