#pragma once

#include "core/DecryptPipeline.h"
#include "core/DocumentReader.h"
#include "core/SavePipeline.h"

// A document without a window, moved by what its user does.
class TestDocument
{
public:
    // Under "correct horse": categories Generic (id 1) and Friends (id 2), records Ada and Grace in the
    // first, Emmy in the second.
    static TestDocument filled();
    static TestDocument fromFile(const QByteArray &file);

    // What dataOfType gives for a window of 900 by 600 at 100, 200 that shows its toolbar. Empty if nothing.
    QByteArray save();
    // Locks with all edits, as the command does.
    void lock();
    // Types the password into the locked face; the status of the decryption.
    qint32 openWith(const QString &password);

    Foundation::Ref<Foundation::Dictionary> addCategory(const QString &name, qint64 uniqueID);
    Foundation::Ref<Foundation::Dictionary>
    addRecord(const QString &firstName, const Foundation::Ref<Foundation::Dictionary> &category);
    Foundation::Ref<Foundation::Dictionary> record(qsizetype index) const;
    Foundation::Ref<Foundation::Dictionary> category(qsizetype index) const;
    // The names of the categories that the records point at, by first name: "Ada: Generic, Grace: Generic".
    QString filing() const;
    // How many records each category counts: "Generic 2, Friends 1".
    QString counts() const;
    // The whole content; of several lines, so that a failed comparison shows the ones that differ.
    std::string json() const;

    DocumentState state;
    int defaultCategoriesMade = 0;
};

inline const QString Password = QStringLiteral("correct horse");

// The root dictionary of a file or of a plain archive; null if there is none.
Foundation::Ref<Foundation::Dictionary> rootOf(const QByteArray &file);
// The file with one key of its root given another value, or none if the value is Null.
QByteArray withKey(const QByteArray &file, const Foundation::Key &key, const Foundation::Value &value);
// The file with plain bytes enciphered under its own key and vector in place of one of its buffers.
QByteArray withPlainBuffer(const QByteArray &file, const Foundation::Key &key, const QByteArray &plain);
// A file of tests/data/documents.
QByteArray sampleBytes(const QString &name);
// Breaks a line of JSON at its members.
std::string jsonLines(QByteArray json);
