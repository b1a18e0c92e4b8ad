#include "core/ContactFields.h"
#include "window/WindowTest.h"
#include "window/binding/Binding.h"
#include "window/controls/InterfaceProperties.h"
#include "window/desktop/SymbolIcon.h"
#include "window/sheets/SheetKinds.h"

#include <QDir>
#include <QMenuBar>
#include <QMetaProperty>
#include <QXmlStreamReader>

namespace
{

// A control or item of an interface file with its dynamic properties.
struct Element
{
    QString name;
    QString className;
    QMap<QString, QString> properties;
    QStringList translated; // names of the properties that a translator gets to see
};

struct InterfaceFile
{
    QString name;
    QList<Element> elements;

    bool has(const QString &elementName) const
    {
        return std::any_of(elements.begin(), elements.end(),
                           [&](const Element &element) { return element.name == elementName; });
    }
};

QString attribute(const QXmlStreamReader &xml, const char *name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

void readProperty(QXmlStreamReader &xml, Element &element)
{
    const QString name = attribute(xml, "name");
    const bool isDynamic = attribute(xml, "stdset") == u"0";
    if (!xml.readNextStartElement())
        return;
    const bool isTranslated = xml.name() == u"string" && attribute(xml, "notr") != u"true";
    const QString value = xml.readElementText(QXmlStreamReader::IncludeChildElements);
    if (isDynamic || name == u"buddy" || name == u"symbol" || name == u"echoMode")
        element.properties.insert(name, value);
    if (isDynamic && isTranslated)
        element.translated.append(name);
}

InterfaceFile readInterfaceFile(const QString &path)
{
    InterfaceFile result{QFileInfo(path).fileName(), {}};
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    std::vector<int> open; // of the elements around, -1 for those that are no control
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::EndElement)
            open.pop_back();
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"property" && !open.empty()) {
            Element ignored;
            readProperty(xml, open.back() < 0 ? ignored : result.elements[open.back()]);
            xml.skipCurrentElement();
            continue;
        }
        const bool isElement = xml.name() == u"widget" || xml.name() == u"action";
        open.push_back(isElement ? int(result.elements.size()) : -1);
        if (isElement)
            result.elements.append(Element{attribute(xml, "name"), attribute(xml, "class"), {}, {}});
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return result;
}

const QDir resources(QStringLiteral(VEXAREL_SOURCE_DIR "/resources"));

// Of the document's window and of its sheets.
QList<InterfaceFile> interfaceFiles()
{
    const auto read = [](const QString &name) {
        return readInterfaceFile(resources.filePath(name + u".ui"_qs));
    };
    QList<InterfaceFile> files{read(MyDocument::windowNibName())};
    for (const SheetKind &kind : sheetKinds()) {
        files.append(read(QLatin1String(kind.interfaceFile)));
        EXPECT_EQ(files.last().elements[0].name, kind.name);
    }
    return files;
}

const QStringList keyPathProperties = {u"bindValue"_qs,   u"bindVisible"_qs,   u"bindEnabled"_qs,
                                       u"bindContent"_qs, u"bindShowsText"_qs, u"bindSelectedObject"_qs,
                                       u"bindLink"_qs,    u"bindToolTip"_qs};

// Whether a key path leads somewhere from an object of that class. A key of a record, category or caption
// counts only if such a thing can have it.
bool resolves(const QMetaObject &root, const QString &path)
{
    const auto category = newCategoryRecord(u""_qs, 1);
    const auto contact = newContactRecord(category, 0);
    for (const Foundation::Key &key : {RecordKey::isCompany, RecordKey::category, RecordKey::resultingName})
        contact->setValue(key, u""_qs);
    const QMetaObject *meta = &root;
    QString rest = path;
    while (meta && !rest.isEmpty()) {
        const QString part = rest.section(u'.', 0, 0);
        rest = rest.section(u'.', 1);
        const bool isController = meta->inherits(&Foundation::ArrayController::staticMetaObject);
        if (isController && (part == u"selection" || part == u"arrangedObjects")) {
            if (!meta->inherits(&FilteringArrayController::staticMetaObject))
                return category->contains(Foundation::Key(rest));
            return rest.startsWith(u"categoryPtr.")
                       ? category->contains(Foundation::Key(rest.section(u'.', 1)))
                       : contact->contains(Foundation::Key(rest));
        }
        const QMetaProperty property = meta->property(meta->indexOfProperty(part.toLatin1().constData()));
        if (property.metaType() == QMetaType::fromType<Foundation::Value>())
            return defaultLabelDictionary()->contains(Foundation::Key(rest));
        if (!property.isValid() || !(property.metaType().flags() & QMetaType::PointerToQObject))
            return property.isValid() && rest.isEmpty();
        meta = property.metaType().metaObject();
    }
    return false; // It ends at an object, which is no value.
}

} // namespace

class InterfaceFilesTest : public WindowTest
{
protected:
    void forEachElement(const std::function<void(const InterfaceFile &, const Element &)> &check) const
    {
        for (const InterfaceFile &file : interfaceFiles()) {
            for (const Element &element : file.elements) {
                SCOPED_TRACE(u"%1: %2"_qs.arg(file.name, element.name).toStdString());
                check(file, element);
            }
        }
    }
};

TEST_F(InterfaceFilesTest, EachIsOfTheWindowOrOfASheet)
{
    EXPECT_EQ(resources.entryList({u"*.ui"_qs}).size(), interfaceFiles().size());
    EXPECT_DEATH(sheetKindOfName(u"mySheet"_qs), "");
}

TEST_F(InterfaceFilesTest, KeyPathsLeadSomewhere)
{
    int checked = 0;
    forEachElement([&checked](const InterfaceFile &, const Element &element) {
        for (const QString &property : keyPathProperties) {
            if (!element.properties.contains(property))
                continue;
            for (const QString &path : BindingExpression::keyPaths(element.properties[property])) {
                EXPECT_TRUE(resolves(MyDocument::staticMetaObject, path)) << path.toStdString();
                ++checked;
            }
        }
    });
    EXPECT_GT(checked, 80);
}

TEST_F(InterfaceFilesTest, ActionsHaveAResponder)
{
    makeNewDocument();
    TextCommands textCommands(window());
    const QList<QObject *> chain = QList<QObject *>{&textCommands, controller()} + document()->responders() +
                                   QList<QObject *>{&application};
    int checked = 0;
    forEachElement([&](const InterfaceFile &, const Element &element) {
        const QString action = element.properties.value(u"action"_qs);
        checked += action.isEmpty() ? 0 : 1;
        EXPECT_TRUE(action.isEmpty() || Foundation::responderForAction(chain, action))
            << action.toStdString();
        const bool isMenuItem = element.className.isEmpty();
        const bool carriesMenu = element.name == u"myCategorySuperMenuItem";
        EXPECT_EQ(isMenuItem && action.isEmpty(), carriesMenu) << "an item that does nothing";
    });
    EXPECT_GT(checked, 20);
}

TEST_F(InterfaceFilesTest, NamesLeadSomewhere)
{
    const QStringList known =
        keyPathProperties + u"transformer visibleTransformer enabledTransformer bindFormat action "
                            "actionSender tag symbol fontScale looksLikeLink echoMode buddy"_qs.split(u' ');
    auto &transformers = Foundation::ValueTransformerRegistry::shared();
    forEachElement([&](const InterfaceFile &file, const Element &element) {
        for (auto it = element.properties.begin(); it != element.properties.end(); ++it) {
            SCOPED_TRACE(u"%1 = %2"_qs.arg(it.key(), it.value()).toStdString());
            EXPECT_TRUE(known.contains(it.key())) << "nobody reads this property";
            const bool isTransformer = it.key().endsWith(u"ransformer");
            EXPECT_TRUE(!isTransformer || transformers.valueTransformerForName(it.value()));
            const bool isControl = it.key() == u"actionSender" || it.key() == u"buddy";
            EXPECT_TRUE(!isControl || file.has(it.value()));
            EXPECT_FALSE(it.key() == u"symbol" && symbolIcon(it.value()).pixmap(16).isNull());
        }
        EXPECT_EQ(element.className == u"PasswordField", element.properties.contains(u"echoMode"_qs))
            << "only a PasswordField keeps its text from the accessibility bus when it shows it";
        // A translated key path would lead elsewhere in another language.
        for (const QString &name : element.translated)
            EXPECT_EQ(name, u"bindFormat"_qs);
    });
}

TEST_F(InterfaceFilesTest, NoMnemonicStandsTwiceInAMenu)
{
    makeNewDocument();
    QList<QWidget *> menus{window()->menuBar()};
    for (QMenu *menu : window()->findChildren<QMenu *>())
        menus.append(menu);
    for (const QWidget *menu : menus) {
        QMap<QKeySequence, QString> items;
        for (const QAction *item : menu->actions()) {
            const auto key = QKeySequence::mnemonic(item->text());
            EXPECT_FALSE(!key.isEmpty() && items.contains(key))
                << item->text().toStdString() << " and " << items[key].toStdString();
            items[key] = item->text();
        }
    }
}

TEST_F(InterfaceFilesTest, TagsAreThoseThatAreAskedFor)
{
    QStringList redrawsName;
    QMap<int, int> openers;
    forEachElement([&](const InterfaceFile &, const Element &element) {
        const int tag = element.properties.value(u"tag"_qs).toInt();
        const QString action = element.properties.value(u"action"_qs);
        if (action == u"openField") {
            // A link of the card or a button of the form stands by the field that it opens, and shows by its
            // flag.
            ++openers[tag];
            const ContactField *field = contactFieldOfTag(tag);
            ASSERT_TRUE(field);
            const bool isLink = element.className == u"FieldText";
            const char *const path = isLink ? "bindValue" : "bindEnabled";
            EXPECT_EQ(element.properties.value(QLatin1String(path)),
                      u"myArrayController.selection."_qs + field->key.name());
            const char *const condition = isLink ? "bindLink" : "bindVisible";
            EXPECT_EQ(element.properties.value(QLatin1String(condition)),
                      u"myLabelDictionary.open%1"_qs.arg(tag, 2, 10, QLatin1Char('0')));
        } else if (element.className == u"QLineEdit" && tag != 0) {
            EXPECT_EQ(tag, 1);
            redrawsName.append(element.name);
        } else if (element.className == u"QPushButton" && tag != 0) {
            EXPECT_TRUE(tag == Foundation::Alert::FirstButtonReturn ||
                        tag == Foundation::Alert::SecondButtonReturn);
        } else {
            EXPECT_EQ(tag, 0);
        }
    });
    redrawsName.sort();
    EXPECT_EQ(redrawsName, QStringList({u"company"_qs, u"firstName"_qs, u"lastName"_qs}));
    for (const ContactField *field : contactFieldsBy(&ContactField::tag))
        EXPECT_EQ(openers.value(field->tag), field->tag <= 3 ? 1 : 2) << "the head of the card has no links";
}

TEST_F(InterfaceFilesTest, EveryTextOfAContactIsShownAndCanBeEdited)
{
    QSet<QString> edited;
    QSet<QString> read;
    forEachElement([&](const InterfaceFile &, const Element &element) {
        const QString path = element.properties.value(u"bindValue"_qs);
        if (!path.startsWith(u"myArrayController.selection."))
            return;
        (element.className == u"FieldText" ? read : edited).insert(path.section(u'.', -1));
    });
    for (const Foundation::Key &key : contactTextKeys()) {
        SCOPED_TRACE(key.name().toStdString());
        EXPECT_TRUE(edited.contains(key.name()));
        // The head of the card works these three out.
        const bool isInHead =
            key == RecordKey::firstName || key == RecordKey::lastName || key == RecordKey::company;
        EXPECT_NE(read.contains(key.name()), isInHead);
    }
}
