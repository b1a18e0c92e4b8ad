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
    // Its default category is Generic with id 1.
    DecryptPipeline decryption();

    Foundation::Ref<Foundation::Dictionary> addCategory(const QString &name, qint64 uniqueID);
    Foundation::Ref<Foundation::Dictionary>
    addRecord(const QString &firstName, const Foundation::Ref<Foundation::Dictionary> &category);
    Foundation::Ref<Foundation::Dictionary> record(qsizetype index) const;
    Foundation::Ref<Foundation::Dictionary> category(qsizetype index) const;
    // Every category with its count and the first names of the records that point at it:
    // "Generic 2: Ada Grace, Friends 1: Emmy".
    QString filing() const;
    // The whole content; of several lines, so that a failed comparison shows the ones that differ.
    std::string json() const;

    DocumentState state;
    int defaultCategoriesMade = 0;
    bool hasReplacedLabels = false; // as the last decryption told
};

inline const QString Password = u"correct horse"_qs;

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
