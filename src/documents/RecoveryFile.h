#pragma once

#include "files/DurableFile.h"
#include "files/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace Foundation
{

// The file in which a document that was never saved under a name outlives a crash; see RecoveryFolder. Holds
// what a saved file would hold, enciphered.
//
// Nobody else takes a file whose document is open, in whatever process; what a process that died has left is
// free. The system's lock on a file beside it (flock) tells the two apart: it goes with the process, on every
// machine to which the folder may move.
class RecoveryFile
{
public:
    // The file of that path, which need not exist yet. Its lock is that path with this suffix. Fails if
    // another document holds the file, or if it cannot be locked.
    static SystemResult<std::unique_ptr<RecoveryFile>> hold(const QString &path, const QString &application);
    static const QString LockSuffix;

    // The file stays: the document may not be done with.
    ~RecoveryFile() = default;

    const QString &path() const { return m_path; }
    bool exists() const { return identityOfFile(m_path).has_value(); }
    // False once its lock file was removed: another process may then take the file, too.
    bool isHeld() const;
    FileResult<> write(const QByteArray &bytes);
    // The document is saved or was given up. What cannot be removed is offered again at the next start.
    void remove();

private:
    RecoveryFile(const QString &path, const QString &application);

    QString m_path;
    QString m_application;
    FileDescriptor m_lock;
};

} // namespace Foundation
