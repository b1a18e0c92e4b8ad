#pragma once

#include "files/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace Foundation
{

// The file in which a document that was never saved under a name outlives a crash: in a folder of the
// application's state (XDG Base Directory Specification, $XDG_STATE_HOME) that only the user can look into.
// Holds what a saved file would hold, enciphered.
//
// Nobody else takes a file whose document is open, in whatever process; what a process that died has left is
// free. The system's lock on a file beside it (flock) tells the two apart: it goes with the process, on every
// machine to which the folder may move.
class RecoveryFile
{
public:
    // A new name, and nothing behind it yet. Null if the folder cannot be made.
    static std::unique_ptr<RecoveryFile> create();
    // The files that no living document holds; each is held from here on.
    static std::vector<std::unique_ptr<RecoveryFile>> takeAbandoned();
    static QString folder();

    // The file stays: the document may not be done with.
    ~RecoveryFile() = default;

    const QString &path() const { return m_path; }
    // False once its lock file was removed: another process may then take the file, too.
    bool isHeld() const;
    // False with *reason in plain words.
    bool write(const QByteArray &bytes, QString *reason);
    // The document is saved or was given up.
    void remove();

private:
    explicit RecoveryFile(const QString &path);
    static std::unique_ptr<RecoveryFile> hold(const QString &path);

    QString m_path;
    FileDescriptor m_lock;
};

} // namespace Foundation
