#include "window/Binder.h"

#include "core/RecordModel.h"
#include "lifecycle/MyDocument.h"
#include "window/InterfaceTransformers.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

// Controls as an interface file would make them, over a document of two records.
class BinderTest : public testing::Test
{
protected:
    BinderTest()
    {
        registerInterfaceTransformers();
        document.myCategoryArrayController()->addDefault({});
        for (const QString &name : {QStringLiteral("Ada"), QStringLiteral("Eve")}) {
            const auto record = document.myArrayController()->newObject();
            record->setValue(RecordKey::firstName, name);
            document.myArrayController()->addObject(record);
        }
        select({0});
        document.updateChangeCount(Foundation::Document::ChangeCleared);
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
    QString text(std::size_t row, const Foundation::Key &key)
    {
        return record(row)->value(key).stringValue();
    }
    static void runEvents() { QCoreApplication::processEvents(); }

    MyDocument document;
    ActionDispatcher dispatcher{&document, [this](const QString &) { return document.responders(); }};
    QList<int> changedTags;
    Binder binder{&document, dispatcher, [this](const Foundation::ArrayController *, int tag) {
                      changedTags.append(tag);
                      document.controlTextDidChange(tag);
                  }};
    QWidget interface;
};

namespace
{
const QString FirstName = QStringLiteral("myArrayController.selection.firstName");
const QString Note = QStringLiteral("myArrayController.selection.note");
} // namespace

TEST_F(BinderTest, FieldsFollowTheSelectionAndWriteBack)
{
    auto *field = add<QLineEdit>({{"bindValue", FirstName}, {"tag", QStringLiteral("1")}});
    auto *twin = add<QLineEdit>({{"bindValue", FirstName}});
    bind();
    EXPECT_EQ(field->text(), QStringLiteral("Ada"));
    select({1});
    EXPECT_EQ(field->text(), QStringLiteral("Eve"));
    EXPECT_FALSE(document.isDocumentEdited()) << "showing is no edit";

    field->setText(QStringLiteral("Éva"));
    EXPECT_EQ(text(1, RecordKey::firstName), QStringLiteral("Éva"));
    EXPECT_EQ(text(0, RecordKey::firstName), QStringLiteral("Ada"));
    EXPECT_EQ(changedTags, QList<int>{1});
    EXPECT_TRUE(document.isDocumentEdited());
    runEvents();
    EXPECT_EQ(twin->text(), QStringLiteral("Éva"));
    EXPECT_EQ(changedTags.size(), 1) << "what a control shows is not written again";
}

TEST_F(BinderTest, LookingAtAValueLeavesItAsItIs)
{
    const struct
    {
        const char *what;
        Value value;
        QString shown;
    } cases[] = {
        {"an absent one", {}, QString()},
        {"line breaks of other systems", QStringLiteral("a\r\nb\rc"), QStringLiteral("a\nb\nc")},
        {"a no-break space", QStringLiteral("a\u00a0b"), QStringLiteral("a\u00a0b")},
        {"a line separator", QStringLiteral("a\u2028b"), QStringLiteral("a\u2028b")},
        {"a text beyond the usual limit of a line", QString(40000, u'x'), QString(40000, u'x')},
    };
    auto *note = add<QPlainTextEdit>({{"bindValue", Note}});
    auto *line = add<QLineEdit>({{"bindValue", Note}});
    bind();
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        record(1)->setValue(RecordKey::note, c.value);
        select({1});
        EXPECT_EQ(note->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'),
                  c.shown.isNull() ? QStringLiteral("") : c.shown);
        EXPECT_EQ(line->text(), c.value.stringValue());
        select({0});
        EXPECT_EQ(record(1)->value(RecordKey::note), c.value);
    }
    EXPECT_TRUE(changedTags.isEmpty());
    EXPECT_FALSE(document.isDocumentEdited());

    record(1)->setValue(RecordKey::note, QStringLiteral("a\u00a0b"));
    select({1});
    note->moveCursor(QTextCursor::End);
    note->insertPlainText(QStringLiteral("!"));
    EXPECT_EQ(text(1, RecordKey::note), QStringLiteral("a\u00a0b!")) << "typing elsewhere keeps it too";
}

TEST_F(BinderTest, SeveralRecordsShowWhatTheyShareAndAreWrittenTogether)
{
    auto *field = add<QLineEdit>({{"bindValue", FirstName}});
    auto *note = add<QPlainTextEdit>({{"bindValue", Note}});
    auto *isCompany =
        add<QCheckBox>({{"bindValue", QStringLiteral("myArrayController.selection.isCompany")}});
    field->setPlaceholderText(QStringLiteral("hint"));
    record(1)->setValue(RecordKey::isCompany, Value(true));
    bind();
    select({0, 1});
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(field->placeholderText(), QStringLiteral("Multiple Values"));
    EXPECT_EQ(note->placeholderText(), QString()) << "both are empty";
    EXPECT_EQ(isCompany->checkState(), Qt::PartiallyChecked);
    EXPECT_TRUE(changedTags.isEmpty());

    field->setText(QStringLiteral("Kim"));
    isCompany->click();
    for (const std::size_t row : {0U, 1U}) {
        EXPECT_EQ(text(row, RecordKey::firstName), QStringLiteral("Kim"));
        EXPECT_TRUE(record(row)->value(RecordKey::isCompany).boolValue());
    }
    runEvents();
    EXPECT_EQ(isCompany->checkState(), Qt::Checked);
    isCompany->click();
    EXPECT_EQ(isCompany->checkState(), Qt::Unchecked) << "the third state is gone with the difference";
    select({1});
    EXPECT_EQ(field->placeholderText(), QStringLiteral("hint"));
}

TEST_F(BinderTest, WithoutASelectionNothingCanBeTyped)
{
    auto *field = add<QLineEdit>({{"bindValue", FirstName}});
    auto *own = add<QLineEdit>({{"bindValue", FirstName}, {"bindEnabled", QStringLiteral("yesVal")}});
    auto *hint = add<QLabel>({{"bindVisible", QStringLiteral("!myArrayController.hasSelection")}});
    bind();
    EXPECT_TRUE(hint->isHidden());
    select({});
    EXPECT_FALSE(field->isEnabled());
    EXPECT_EQ(field->text(), QString());
    EXPECT_TRUE(own->isEnabled()) << "a condition of its own decides alone";
    EXPECT_FALSE(hint->isHidden());
    field->setText(QStringLiteral("lost"));
    EXPECT_TRUE(changedTags.isEmpty());
    select({0});
    EXPECT_TRUE(field->isEnabled());
}

TEST_F(BinderTest, ConditionsAreNegatedJoinedAndTransformed)
{
    Foundation::ValueTransformerRegistry::shared().valueTransformerForName(
        QStringLiteral("withoutTrailingColon"));
    auto *any = add<QLabel>({{"bindVisible", FirstName + QStringLiteral(" | ") + Note}});
    auto *none = add<QLabel>({{"bindVisible", u'!' + FirstName + QStringLiteral("|") + Note}});
    bind();
    const struct
    {
        QString firstName;
        Value note;
        bool isAny;
    } cases[] = {
        {QStringLiteral("Ada"), QStringLiteral(""), true},
        {QStringLiteral(""), QStringLiteral("0"), true},
        {QStringLiteral(""), QStringLiteral(""), false},
        {QStringLiteral(""), {}, false},
    };
    for (const auto &c : cases) {
        record(0)->setValue(RecordKey::firstName, c.firstName);
        record(0)->setValue(RecordKey::note, c.note);
        document.myArrayController()->noteChange(record(0));
        runEvents();
        EXPECT_EQ(!any->isHidden(), c.isAny) << c.firstName.toStdString();
        EXPECT_EQ(!none->isHidden(), !c.isAny) << c.firstName.toStdString();
    }
}

TEST_F(BinderTest, TextsAreShownAsTheyAre)
{
    document.myLabelDictionary()->setValue(QStringView(u"note"), QStringLiteral("<b>R&D</b>:"));
    auto *field = add<QLineEdit>({});
    auto *caption = add<QLabel>({{"bindValue", QStringLiteral("myLabelDictionary.note")}});
    caption->setBuddy(field);
    auto *heading = add<QLabel>({{"bindValue", QStringLiteral("myLabelDictionary.note")},
                                 {"transformer", QStringLiteral("withoutTrailingColon")},
                                 {"bindFormat", QStringLiteral("%1 100%")}});
    bind();
    EXPECT_EQ(caption->textFormat(), Qt::PlainText);
    EXPECT_EQ(caption->text(), QStringLiteral("<b>R&&D</b>:")) << "with a buddy, & would mark a mnemonic";
    EXPECT_EQ(heading->text(), QStringLiteral("<b>R&D</b> 100%"));
}

TEST_F(BinderTest, PropertiesAreWrittenWithoutMarkingTheDocument)
{
    auto *password =
        add<QLineEdit>({{"bindValue", QStringLiteral("plainPasswordInserted")},
                        {"bindShowsText", QStringLiteral("showClearPasswordInInsertPasswordSheet")}});
    auto *show = add<QCheckBox>({{"bindValue", QStringLiteral("showClearPasswordInInsertPasswordSheet")}});
    bind();
    EXPECT_EQ(password->echoMode(), QLineEdit::Password);
    password->setText(QStringLiteral("secret"));
    show->click();
    EXPECT_EQ(document.plainPasswordInserted(), QStringLiteral("secret"));
    EXPECT_TRUE(document.showClearPasswordInInsertPasswordSheet());
    EXPECT_EQ(password->echoMode(), QLineEdit::Normal);
    document.setPlainPasswordInserted(QStringLiteral(""));
    EXPECT_EQ(password->text(), QString());
    EXPECT_TRUE(changedTags.isEmpty());
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(BinderTest, PopUpShowsTheCategoriesAndSendsWhatIsChosen)
{
    auto *popUp = add<QComboBox>(
        {{"bindContent", QStringLiteral("myCategoryArrayController.arrangedObjects.cat_category")},
         {"bindSelectedObject", QStringLiteral("myArrayController.selection.categoryPtr")},
         {"action", QStringLiteral("categoryWasSet")}});
    bind();
    const auto friends = document.myCategoryArrayController()->addWithName(QStringLiteral("R&D <b>"));
    EXPECT_EQ(popUp->count(), 2);
    EXPECT_EQ(popUp->itemText(1), QStringLiteral("R&D <b>"));
    EXPECT_EQ(popUp->currentIndex(), 0) << "the selected record's category stays the one shown";

    QTest::keyClick(popUp, Qt::Key_Down);
    EXPECT_EQ(record(0)->value(RecordKey::categoryPtr).dictionary(), friends);
    EXPECT_TRUE(document.isDocumentEdited());
    select({0, 1});
    EXPECT_EQ(popUp->currentIndex(), -1);
    EXPECT_EQ(popUp->placeholderText(), QStringLiteral("Multiple Values"));
    select({0});
    EXPECT_EQ(popUp->currentText(), QStringLiteral("R&D <b>"));
}

TEST_F(BinderTest, ActionsCarryTheSenderThatTheFileNames)
{
    document.setIsEncrypted(true);
    auto *field = add<QLineEdit>({{"action", QStringLiteral("submitPasswordToDecrypt")}});
    field->setObjectName(QStringLiteral("field"));
    auto *button = add<QPushButton>(
        {{"action", QStringLiteral("submitPasswordToDecrypt")}, {"actionSender", QStringLiteral("field")}});
    bind();
    field->setText(QStringLiteral("by button"));
    button->click();
    EXPECT_EQ(document.plainPassword(), QStringLiteral("by button"));
    field->setText(QStringLiteral("by key"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(document.plainPassword(), QStringLiteral("by key"));
}

TEST_F(BinderTest, ItemsAreEnabledByResponderValidationAndCondition)
{
    const auto addItem = [this](const QString &action, const QString &condition = {}) {
        auto *item = new QAction(&interface);
        item->setProperty("action", action);
        item->setProperty("bindEnabled", condition);
        return item;
    };
    QAction *addRow = addItem(QStringLiteral("addRow"));
    QAction *deleteRow = addItem(QStringLiteral("deleteRow"), QStringLiteral("myArrayController.canRemove"));
    QAction *unknown = addItem(QStringLiteral("flyAway"));
    QAction *editMode = addItem(QStringLiteral("switchViewEditMode"));
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
