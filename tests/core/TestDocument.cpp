#include "core/TestDocument.h"

#include "DocumentJson.h"
#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Foundation;

TestDocument TestDocument::filled()
{
    TestDocument document;
    document.state.plainPassword = Password;
    document.state.documentCreationDate = Value::date(537416386.25);
    const auto generic = document.addCategory(u"Generic"_qs, 1);
    const auto friends = document.addCategory(u"Friends"_qs, 2);
    document.addRecord(u"Ada"_qs, generic);
    document.addRecord(u"Grace"_qs, generic);
    document.addRecord(u"Emmy"_qs, friends);
    return document;
}

TestDocument TestDocument::fromFile(const QByteArray &file)
{
    TestDocument document;
    EXPECT_TRUE(readDocument(file, document.state, Foundation::Services::shared().clock()));
    return document;
}

QByteArray TestDocument::save()
{
    return SavePipeline(state).dataOfType({{100, 200, 900, 600}, true}).value_or(QByteArray());
}

void TestDocument::lock()
{
    SavePipeline(state).encryptData();
    state.YouCanSave = false;
    state.isEncrypted = true;
}

DecryptPipeline TestDocument::decryption()
{
    return DecryptPipeline(state, Foundation::Services::shared().clock(), [this] {
        ++defaultCategoriesMade;
        return newCategoryRecord(u"Generic"_qs, 1);
    });
}

qint32 TestDocument::openWith(const QString &password)
{
    state.plainPassword = password;
    DecryptPipeline pipeline = decryption();
    const qint32 status = statusOf(pipeline.decript());
    hasReplacedLabels = pipeline.hasReplacedLabels();
    if (status == DecryptSuccess) {
        state.isEncrypted = false;
        state.YouCanSave = true;
    }
    return status;
}

Ref<Dictionary> TestDocument::addCategory(const QString &name, qint64 uniqueID)
{
    auto added = newCategoryRecord(name, uniqueID);
    state.myCategoryArray->values.emplace_back(added);
    return added;
}

Ref<Dictionary> TestDocument::addRecord(const QString &firstName, const Ref<Dictionary> &category)
{
    auto added = newContactRecord(category, 646300000.5);
    added->setValue(RecordKey::firstName, firstName);
    state.myArray->values.emplace_back(added);
    return added;
}

Ref<Dictionary> TestDocument::record(qsizetype index) const
{
    return state.myArray->at(index).dictionary();
}

Ref<Dictionary> TestDocument::category(qsizetype index) const
{
    return state.myCategoryArray->at(index).dictionary();
}

QString TestDocument::filing() const
{
    QStringList filed;
    for (const Value &category : state.myCategoryArray->values) {
        const auto entries = category.dictionary();
        QString line = entries->value(CategoryKey::cat_category).stringValue() + QLatin1Char(' ') +
                       QString::number(entries->value(CategoryKey::cat_howManyUsingThis).intValue()) +
                       QLatin1Char(':');
        for (const Value &record : state.myArray->values) {
            if (record.dictionary()->value(RecordKey::categoryPtr) == category)
                line += QLatin1Char(' ') + record.dictionary()->value(RecordKey::firstName).stringValue();
        }
        filed << line;
    }
    return filed.join(u", "_qs);
}

std::string TestDocument::json() const
{
    return jsonLines(jsonOfDocument(state));
}

Ref<Dictionary> rootOf(const QByteArray &file)
{
    const auto root = unarchivedRoot(file);
    return root ? root->dictionary() : nullptr;
}

QByteArray withKey(const QByteArray &file, const Key &key, const Value &value)
{
    const Ref<Dictionary> root = rootOf(file);
    root->setValue(key, value);
    return archivedData(root);
}

QByteArray withPlainBuffer(const QByteArray &file, const Key &key, const QByteArray &plain)
{
    const Ref<Dictionary> root = rootOf(file);
    VLCommonCrypto engine;
    engine.setPasswordToDecrypt(Password, root->value(FileKey::IV).dataValue(),
                                root->value(FileKey::salt).dataValue());
    qint32 status = 0;
    return withKey(file, key, engine.encrypt(plain, &status).value_or(QByteArray()));
}

QByteArray sampleBytes(const QString &name)
{
    QFile file(QStringLiteral(VEXAREL_TEST_DATA "/documents/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

std::string jsonLines(QByteArray json)
{
    return json.replace(",\"", ",\n\"").replace("},{", "},\n{").toStdString();
}
