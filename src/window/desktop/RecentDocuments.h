#pragma once

#include <QStringList>

// The documents that were opened or saved recently, in the list of recently used files that all programs of
// the desktop share (freedesktop.org, "Desktop Bookmark Specification"; recently-used.xbel in the data folder
// of the user). It is stored nowhere else. Entries of other programs are kept, as far as the library supports
// the format. If the list cannot be read or written, or another program changes it meanwhile, it is not
// changed, and no error is reported.
class RecentDocuments
{
public:
    // `file` is the path of the list.
    explicit RecentDocuments(const QString &file = listOfTheDesktop());

    static QString listOfTheDesktop();

    // Adds the document, or updates its time of use.
    void add(const QString &path);
    // The paths of at most ten documents that still exist, the most recent one first.
    QStringList paths() const;
    // Removes all documents of this application from the list.
    void clear();

private:
    QString m_file;
};
