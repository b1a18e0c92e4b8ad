#include "window/binding/Binder.h"

#include "core/RecordModel.h"
#include "helpers/transformers/HelperTransformers.h"
#include "lifecycle/MyDocument.h"
#include "window/binding/InterfaceTransformers.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Foundation;

// Controls as an interface file would make them, over a document of two records.
class BinderTest : public testing::Test
{
protected:
    BinderTest()
    {
        registerInterfaceTransformers();
        document.myCategoryArrayController()->addDefault({});
        for (const QString &name : {u"Ada"_qs, u"Eve"_qs}) {
            const auto record = document.myArrayController()->newObject();
            record->setValue(RecordKey::firstName, name);
            document.myArrayController()->addObject(record);
        }
        select({0});
        document.updateChangeCount(Document::ChangeCleared);
    }

    template <class Control>
    Control *add(const QList<std::pair<const char *, QString>> &properties)
    {
        auto *control = new Control(&interface);
        for (const auto &[name, value] : properties)
            control->setProperty(name, value);
        return control;
    }
    void bind() { binder.bind(&interface); }
    void select(std::vector<std::size_t> rows)
    {
        document.myArrayController()->setSelectionIndexes(std::move(rows));
    }
    Ref<Dictionary> record(std::size_t row) { return document.myArrayController()->arrangedObjects()[row]; }
    QString text(std::size_t row, const Key &key) { return record(row)->value(key).stringValue(); }
    static void runEvents() { QCoreApplication::processEvents(); }

    MyDocument document;
    ActionDispatcher dispatcher{&document, [this](const QString &) { return document.responders(); }};
    QList<int> changedTags;
    Binder binder{&document, dispatcher, [this](const ArrayController *, int tag) {
                      changedTags.append(tag);
                      document.controlTextDidChange(tag);
                  }};
    QWidget interface;
};

namespace
{
const QString FirstName = u"myArrayController.selection.firstName"_qs;
const QString Note = u"myArrayController.selection.note"_qs;
} // namespace

TEST_F(BinderTest, FieldsFollowTheSelectionAndWriteBack)
{
    auto *field = add<QLineEdit>({{"bindValue", FirstName}, {"tag", u"1"_qs}});
    auto *twin = add<QLineEdit>({{"bindValue", FirstName}});
    bind();
    EXPECT_EQ(field->text(), u"Ada"_qs);
    select({1});
    EXPECT_EQ(field->text(), u"Eve"_qs);
    EXPECT_FALSE(document.isDocumentEdited()) << "showing is no edit";

    field->setText(u"Éva"_qs);
    EXPECT_EQ(text(1, RecordKey::firstName), u"Éva"_qs);
    EXPECT_EQ(text(0, RecordKey::firstName), u"Ada"_qs);
    EXPECT_EQ(changedTags, QList<int>{1});
    EXPECT_TRUE(document.isDocumentEdited());
    runEvents();
    EXPECT_EQ(twin->text(), u"Éva"_qs);
    EXPECT_EQ(changedTags.size(), 1) << "what a control shows is not written again";
}

TEST_F(BinderTest, LookingAtAValueLeavesItAsItIs)
{
    const std::tuple<const char *, Value, QString> cases[] = {
        {"an absent one", {}, QString()},
        {"line breaks of other systems", u"a\r\nb\rc"_qs, u"a\nb\nc"_qs},
        {"a no-break space", u"a\u00a0b"_qs, u"a\u00a0b"_qs},
        {"a line separator", u"a\u2028b"_qs, u"a\u2028b"_qs},
    };
    auto *note = add<QPlainTextEdit>({{"bindValue", Note}});
    auto *line = add<QLineEdit>({{"bindValue", Note}});
    bind();
    for (const auto &[what, value, shown] : cases) {
        SCOPED_TRACE(what);
        record(1)->setValue(RecordKey::note, value);
        select({1});
        EXPECT_EQ(note->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'),
                  shown.isNull() ? u""_qs : shown);
        EXPECT_EQ(line->text(), value.stringValue());
        select({0});
        EXPECT_EQ(record(1)->value(RecordKey::note), value);
    }
    EXPECT_TRUE(changedTags.isEmpty());
    EXPECT_FALSE(document.isDocumentEdited());

    record(1)->setValue(RecordKey::note, u"a\u00a0b"_qs);
    select({1});
    note->moveCursor(QTextCursor::End);
    note->insertPlainText(u"!"_qs);
    EXPECT_EQ(text(1, RecordKey::note), u"a\u00a0b!"_qs) << "typing elsewhere keeps it too";
}

TEST_F(BinderTest, AShortenedTextIsNeverWrittenBack)
{
    auto *line = add<QLineEdit>({{"bindValue", Note}});
    bind();
    const QString smile = u"\U0001F642"_qs;
    const QString pasted = QString(1999, u'x') + smile + QString(40'000, u'x');
    line->setText(pasted);
    EXPECT_EQ(text(0, RecordKey::note), pasted) << "beyond the usual limit of a line";
    runEvents();
    EXPECT_EQ(line->text(), QString(1999, u'x')) << "no half character";
    EXPECT_TRUE(line->isReadOnly());
    line->setText(u"by assistive technology"_qs);
    EXPECT_EQ(text(0, RecordKey::note), pasted);
    select({1});
    line->setText(QString(2'000, u'x'));
    runEvents();
    line->insert(smile);
    runEvents();
    EXPECT_FALSE(line->isReadOnly()) << "typing goes on";
    EXPECT_EQ(text(1, RecordKey::note), QString(2'000, u'x') + smile);
}

TEST_F(BinderTest, SeveralRecordsShowWhatTheyShareAndAreWrittenTogether)
{
    auto *field = add<QLineEdit>({{"bindValue", FirstName}});
    auto *note = add<QPlainTextEdit>({{"bindValue", Note}});
    auto *isCompany = add<QCheckBox>({{"bindValue", u"myArrayController.selection.isCompany"_qs}});
    field->setPlaceholderText(u"hint"_qs);
    record(0)->setValue(RecordKey::note, {});
    record(1)->setValue(RecordKey::isCompany, Value(false));
    bind();
    select({0, 1});
    EXPECT_EQ(isCompany->checkState(), Qt::Unchecked) << "absent and false look alike";
    select({1});
    record(1)->setValue(RecordKey::isCompany, Value(true));
    select({0, 1});
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(field->placeholderText(), u"Multiple Values"_qs);
    EXPECT_EQ(note->placeholderText(), QString()) << "absent and empty look alike";
    EXPECT_EQ(isCompany->checkState(), Qt::PartiallyChecked);
    EXPECT_TRUE(changedTags.isEmpty());

    field->setText(u"Kim"_qs);
    isCompany->click();
    for (const std::size_t row : {0U, 1U}) {
        EXPECT_EQ(text(row, RecordKey::firstName), u"Kim"_qs);
        EXPECT_TRUE(record(row)->value(RecordKey::isCompany).boolValue());
    }
    runEvents();
    EXPECT_EQ(isCompany->checkState(), Qt::Checked);
    isCompany->click();
    EXPECT_EQ(isCompany->checkState(), Qt::Unchecked) << "the third state is gone with the difference";
    select({1});
    EXPECT_EQ(field->placeholderText(), u"hint"_qs);
}

TEST_F(BinderTest, AFieldsUndoStepsSelectionAndCaretGoWithTheRecordThatItShows)
{
    auto *line = add<QLineEdit>({{"bindValue", FirstName}});
    auto *note = add<QPlainTextEdit>({{"bindValue", Note}});
    auto *caption = add<QLineEdit>({{"bindValue", u"myLabelDictionary.note"_qs}});
    record(1)->setValue(RecordKey::firstName, u"xAda"_qs);
    record(1)->setValue(RecordKey::note, u"x"_qs);
    bind();
    for (QWidget *field :
         {static_cast<QWidget *>(line), static_cast<QWidget *>(note), static_cast<QWidget *>(caption)})
        QTest::keyClicks(field, u"x"_qs);
    line->selectAll();
    EXPECT_TRUE(line->isUndoAvailable() && note->document()->isUndoAvailable() && caption->isUndoAvailable());
    select({1}); // With equal texts.
    document.setMyLabelDictionary(document.myLabelDictionary()->copy());
    EXPECT_FALSE(line->isUndoAvailable() || note->document()->isUndoAvailable() ||
                 caption->isUndoAvailable());
    EXPECT_FALSE(line->hasSelectedText());
    EXPECT_EQ(line->cursorPosition(), 0);
    EXPECT_EQ(note->textCursor().position(), 0);
    for (const std::size_t row : {0U, 1U})
        EXPECT_EQ(text(row, RecordKey::firstName) + text(row, RecordKey::note), u"xAdax"_qs);
}

TEST_F(BinderTest, TypingIntoSeveralRecordsIsOneStepThatGivesEachItsOwnBack)
{
    auto *note = add<QPlainTextEdit>({{"bindValue", Note}});
    record(0)->setValue(RecordKey::note, {});
    record(1)->setValue(RecordKey::note, u"tea"_qs);
    bind();
    const auto notes = [this] {
        return QList<Value>{record(0)->value(RecordKey::note), record(1)->value(RecordKey::note)};
    };
    select({0, 1});
    QTest::keyClicks(note, u"ab"_qs);
    EXPECT_EQ(notes(), (QList<Value>{u"ab"_qs, u"ab"_qs}));
    select({0});
    document.undoManager().undo();
    EXPECT_EQ(notes(), (QList<Value>{{}, u"tea"_qs}));
    EXPECT_EQ(document.myArrayController()->selectionIndexes().size(), 2U) << "what has changed is seen";
    EXPECT_FALSE(document.undoManager().canUndo());
    document.undoManager().redo();
    EXPECT_EQ(notes(), (QList<Value>{u"ab"_qs, u"ab"_qs}));
    select({0});
    QTest::keyClicks(note, u"c"_qs);
    document.undoManager().undo();
    EXPECT_EQ(notes(), (QList<Value>{u"cab"_qs, u"tea"_qs})) << "what was typed since stays";
}

TEST_F(BinderTest, WithoutASelectionNothingCanBeTyped)
{
    auto *field = add<QLineEdit>({{"bindValue", FirstName}});
    auto *own = add<QLineEdit>({{"bindValue", FirstName}, {"bindEnabled", u"yesVal"_qs}});
    auto *hint = add<QLabel>({{"bindVisible", u"!myArrayController.hasSelection"_qs}});
    bind();
    EXPECT_TRUE(hint->isHidden());
    select({});
    EXPECT_FALSE(field->isEnabled());
    EXPECT_EQ(field->text(), QString());
    EXPECT_TRUE(own->isEnabled()) << "a condition of its own decides alone";
    EXPECT_FALSE(hint->isHidden());
    field->setText(u"lost"_qs);
    EXPECT_TRUE(changedTags.isEmpty());
    select({0});
    EXPECT_TRUE(field->isEnabled());
}

TEST_F(BinderTest, ConditionsAreNegatedJoinedAndTransformed)
{
    registerHelperTransformers();
    auto *blank = add<QLabel>({{"bindVisible", Note}, {"visibleTransformer", u"VLEmptyTrimmedString"_qs}});
    auto *any = add<QLabel>({{"bindVisible", FirstName + u" | "_qs + Note}});
    auto *none = add<QLabel>({{"bindVisible", u'!' + FirstName + u"|"_qs + Note}});
    bind();
    const struct
    {
        QString firstName;
        Value note;
        bool isAny;
    } cases[] = {
        {u"Ada"_qs, u""_qs, true},
        {u""_qs, u"0"_qs, true},
        {u""_qs, u""_qs, false},
        {u""_qs, {}, false},
    };
    for (const auto &c : cases) {
        record(0)->setValue(RecordKey::firstName, c.firstName);
        record(0)->setValue(RecordKey::note, c.note);
        document.myArrayController()->noteChange(record(0));
        runEvents();
        EXPECT_EQ(!any->isHidden(), c.isAny) << c.firstName.toStdString();
        EXPECT_EQ(!none->isHidden(), !c.isAny) << c.firstName.toStdString();
        EXPECT_EQ(!blank->isHidden(), c.note != Value(u"0"_qs));
    }
}

TEST_F(BinderTest, TextsAreShownAsTheyAre)
{
    document.myLabelDictionary()->setValue(QStringView(u"note"), u"<b>R&D</b>:"_qs);
    auto *field = add<QLineEdit>({});
    auto *caption = add<QLabel>({{"bindValue", u"myLabelDictionary.note"_qs}});
    caption->setBuddy(field);
    auto *heading = add<QLabel>({{"bindValue", u"myLabelDictionary.note"_qs},
                                 {"transformer", u"withoutTrailingColon"_qs},
                                 {"bindFormat", u"%1 100%"_qs}});
    bind();
    EXPECT_EQ(caption->textFormat(), Qt::PlainText);
    EXPECT_EQ(caption->text(), u"<b>R&&D</b>:"_qs) << "with a buddy, & would mark a mnemonic";
    EXPECT_EQ(heading->text(), u"<b>R&D</b> 100%"_qs);
}

TEST_F(BinderTest, PropertiesAreWrittenWithoutMarkingTheDocument)
{
    auto *password = add<QLineEdit>({{"bindValue", u"plainPasswordInserted"_qs},
                                     {"bindShowsText", u"showClearPasswordInInsertPasswordSheet"_qs}});
    auto *show = add<QCheckBox>({{"bindValue", u"showClearPasswordInInsertPasswordSheet"_qs}});
    bind();
    EXPECT_EQ(password->echoMode(), QLineEdit::Password);
    password->setText(u"secret"_qs);
    show->click();
    EXPECT_EQ(document.plainPasswordInserted(), u"secret"_qs);
    EXPECT_TRUE(document.showClearPasswordInInsertPasswordSheet());
    EXPECT_EQ(password->echoMode(), QLineEdit::Normal);
    document.setPlainPasswordInserted(u""_qs);
    EXPECT_EQ(password->text(), QString());
    EXPECT_TRUE(changedTags.isEmpty());
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(BinderTest, PopUpShowsTheCategoriesAndSendsWhatIsChosen)
{
    auto *popUp =
        add<QComboBox>({{"bindContent", u"myCategoryArrayController.arrangedObjects.cat_category"_qs},
                        {"bindSelectedObject", u"myArrayController.selection.categoryPtr"_qs},
                        {"action", u"categoryWasSet"_qs}});
    bind();
    const auto friends = document.myCategoryArrayController()->addWithName(u"R&D <b>"_qs);
    EXPECT_EQ(popUp->count(), 2);
    EXPECT_EQ(popUp->itemText(1), u"R&D <b>"_qs);
    EXPECT_EQ(popUp->currentIndex(), 0) << "the selected record's category stays the one shown";

    QTest::keyClick(popUp, Qt::Key_Down);
    EXPECT_EQ(record(0)->value(RecordKey::categoryPtr).dictionary(), friends);
    EXPECT_TRUE(document.isDocumentEdited());
    select({0, 1});
    EXPECT_EQ(popUp->currentIndex(), -1);
    EXPECT_EQ(popUp->placeholderText(), u"Multiple Values"_qs);
    select({0});
    EXPECT_EQ(popUp->currentText(), u"R&D <b>"_qs);
}

TEST_F(BinderTest, ItemsAreEnabledByResponderValidationAndCondition)
{
    const auto addItem = [this](const QString &action, const QString &condition = {}) {
        auto *item = new QAction(&interface);
        item->setProperty("action", action);
        item->setProperty("bindEnabled", condition);
        return item;
    };
    QAction *addRow = addItem(u"addRow"_qs);
    QAction *deleteRow = addItem(u"deleteRow"_qs, u"myArrayController.canRemove"_qs);
    QAction *unknown = addItem(u"flyAway"_qs);
    QAction *editMode = addItem(u"switchViewEditMode"_qs);
    editMode->setCheckable(true);
    bind();
    dispatcher.validate();
    EXPECT_TRUE(addRow->isEnabled());
    EXPECT_TRUE(deleteRow->isEnabled());
    EXPECT_FALSE(unknown->isEnabled());
    EXPECT_FALSE(editMode->isChecked());

    editMode->trigger();
    EXPECT_EQ(document.selectedView(), MyDocument::EditMode);
    EXPECT_TRUE(editMode->isChecked());
    select({});
    runEvents();
    EXPECT_FALSE(deleteRow->isEnabled());
    document.setIsEncrypted(true);
    addRow->trigger(); // Before the item was brought up to date.
    EXPECT_EQ(document.myArrayController()->arrangedObjects().size(), 2U);
    EXPECT_FALSE(addRow->isEnabled());
}
