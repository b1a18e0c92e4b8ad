#pragma once

#include "files/DurableFile.h"
#include "files/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace Foundation
{

// A file with unsaved content of a document, which survives a crash; see RecoveryFolder. Documents without a
// file use one, and also documents whose own file may not or cannot be written. It has the same enciphered
// format as a saved file.
//
// While a document is open, no other document of any process can take its recovery file. After the process
// has died, the file can be taken. A lock (flock) of a second file distinguishes the two cases, because the
// system releases it with the process.
class RecoveryFile
{
public:
    // Takes the file with that path, which need not exist yet. The lock file has the same path with the
    // suffix LockSuffix. Fails if another document has the file or the lock file cannot be locked.
    static SystemResult<std::unique_ptr<RecoveryFile>> hold(const QString &path, const QString &application);
    static const QString LockSuffix;

    // Does not remove the file, because its content may still be needed.
    ~RecoveryFile() = default;

    const QString &path() const { return m_path; }
    bool exists() const { return identityOfFile(m_path).has_value(); }
    // False if the lock file was removed, so that another process could take the file too.
    bool isHeld() const;
    FileResult<> write(const QByteArray &bytes);
    // Removes the file after the document was saved or discarded. A file that cannot be removed is offered
    // again at the next start.
    void remove();

private:
    RecoveryFile(const QString &path, const QString &application);

    QString m_path;
    QString m_application;
    FileDescriptor m_lock;
};

} // namespace Foundation
