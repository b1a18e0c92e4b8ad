#include "DocumentJson.h"
#include "core/DecryptPipeline.h"
#include "lifecycle/MyDocument.h"
#include "platform/ProcessSetup.h"
#include "platform/Services.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <cstdio>
#include <cstdlib>

// Opens, prints and saves documents without a window, with the same logic as the application. See
// docs/probe.md.

using Foundation::ActionSender;
using Foundation::DocumentError;
using Foundation::DocumentResult;
using Foundation::Failure;
using Foundation::Value;

namespace
{

constexpr int Done = 0;
constexpr int NotSaved = 1;
constexpr int WrongUse = 2;

// The outcome is printed. An alert of the document is answered with its last button, which does nothing more.
class UnseenAlerts : public Foundation::ModalAlertPresenter
{
public:
    int runModal(const Foundation::Alert &alert) override
    {
        return Foundation::Alert::FirstButtonReturn + int(alert.buttons.size()) - 1;
    }
};

void print(const QByteArray &json)
{
    std::printf("%s\n", json.constData());
}

QByteArray jsonText(const QString &text)
{
    return jsonOfValue(Value(text));
}

// The whole content of a password file, including line ends and a byte-order mark.
QString passwordIn(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "vexarel-probe: cannot read %s\n", qPrintable(path));
        std::exit(WrongUse);
    }
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const QString password = decoder.decode(file.readAll());
    return password.isNull() ? QStringLiteral("") : password;
}

qint32 unlock(MyDocument &document, const QString &password)
{
    document.setPlainPassword(password);
    const qint32 status = document.Decript();
    if (status == DecryptSuccess)
        document.decryptDone();
    return status;
}

int inspect(const QString &path, const QString &passwordPath)
{
    const QString password = passwordIn(passwordPath);
    MyDocument document;
    if (const auto read = document.readFromFile(path); !read) {
        const bool isNewer = read.failedWith(DocumentError::NewerFormat);
        print(isNewer ? R"({"archive":"ok","refused":true})" : R"({"archive":"broken"})");
        return Done;
    }
    const qint32 status = unlock(document, password);
    QByteArray json = R"({"archive":"ok","refused":false,"status":)" + QByteArray::number(status);
    if (status == DecryptSuccess)
        json += ',' + jsonOfDocument(document.state()).sliced(1);
    else
        json += '}';
    print(json);
    return Done;
}

int open(const QString &path, const QString &password)
{
    MyDocument document;
    if (const auto read = document.readFromFile(path); !read) {
        print(read.failedWith(DocumentError::NewerFormat)
                  ? QByteArray(R"({"outcome":"refused-newer"})")
                  : R"({"outcome":"refused","message":)" + jsonText(read.words()) + '}');
        return Done;
    }
    ActionSender field;
    field.stringValue = password;
    document.submitPasswordToDecrypt(field);
    if (document.isEncrypted()) {
        print(password.isEmpty() ? R"({"outcome":"locked"})" : R"({"outcome":"wrong-password"})");
        return Done;
    }
    print(R"({"outcome":"unlocked","records":)" + QByteArray::number(document.myArray()->count()) +
          R"(,"categories":)" + QByteArray::number(document.myCategoryArray()->count()) + '}');
    return Done;
}

int sayNotSaved(const QString &reason)
{
    std::fprintf(stderr, "vexarel-probe: not saved. %s\n", qPrintable(reason));
    return NotSaved;
}

int sayNotOpened(const Failure<DocumentError> &failure)
{
    return sayNotSaved(failure.code == DocumentError::NewerFormat
                           ? QStringLiteral("The file is of a newer release.")
                           : failure.words);
}

int resave(const QString &path, const QString &passwordPath, const QString &target)
{
    const QString password = passwordIn(passwordPath);
    MyDocument document;
    if (const auto read = document.readFromFile(path); !read)
        return sayNotOpened(read.failure());
    if (unlock(document, password) != DecryptSuccess)
        return sayNotSaved(QStringLiteral("The document stays locked."));
    const auto written = document.writeToFile(target);
    return written ? Done : sayNotSaved(written.words());
}

// Changes the note of the first record. Adds a record if there is none.
void change(MyDocument &document)
{
    if (document.myArray()->values.empty())
        document.recordCommands().addRow({});
    document.myArrayController()->setSelectionIndex(0);
    const QString note = document.myArrayController()->valueForSelection(u"note").stringValue();
    document.myArrayController()->setValueForSelection(RecordKey::note, note + QStringLiteral("*"));
    document.controlTextDidChange(0);
}

int save(const QString &path, const QString &passwordPath)
{
    const QString password = passwordIn(passwordPath);
    MyDocument document;
    const bool isNew = !QFileInfo::exists(path);
    if (isNew) {
        document.setPlainPassword(password);
        document.myCategoryArrayController()->addDefault({});
    } else if (const auto read = document.readFromFile(path); !read) {
        return sayNotOpened(read.failure());
    } else if (unlock(document, password) != DecryptSuccess) {
        return sayNotSaved(QStringLiteral("The document stays locked."));
    }
    if (const QByteArray hook = qgetenv("SAVETEST_HOOK"); !hook.isEmpty()) {
        if (std::system(hook.constData()) == -1)
            return sayNotSaved(QStringLiteral("The hook could not be run."));
    }
    change(document);
    DocumentResult<> saved = Failure{DocumentError::File, QStringLiteral("Saving has not ended.")};
    if (isNew)
        saved = document.writeToFile(path);
    else
        document.saveWithCompletion([&saved](const DocumentResult<> &result) { saved = result; });
    if (saved && document.isDocumentEdited())
        return sayNotSaved(QStringLiteral("The document still counts as edited."));
    return saved ? Done : sayNotSaved(saved.words());
}

int sayUse()
{
    std::fputs("vexarel-probe inspect FILE PASSWORD_FILE\n"
               "vexarel-probe resave FILE PASSWORD_FILE OUT\n"
               "vexarel-probe open FILE PASSWORD\n"
               "vexarel-probe save FILE PASSWORD_FILE\n",
               stderr);
    return WrongUse;
}

} // namespace

int main(int argc, char **argv)
{
    Foundation::prepareProcess();
    QCoreApplication application(argc, argv);
    UnseenAlerts alerts;
    Foundation::Services::shared().setModalAlerts(&alerts);
    const QStringList words = application.arguments();
    const QString command = words.value(1);
    if (words.size() == 4 && command == u"inspect")
        return inspect(words[2], words[3]);
    if (words.size() == 5 && command == u"resave")
        return resave(words[2], words[3], words[4]);
    if (words.size() == 4 && command == u"open")
        return open(words[2], words[3]);
    if (words.size() == 4 && command == u"save")
        return save(words[2], words[3]);
    return sayUse();
}
