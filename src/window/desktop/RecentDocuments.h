#pragma once

#include <QStringList>

// The documents that were opened or saved lately, in the list of recently used files that all programs of the
// desktop share (freedesktop.org, "Desktop Bookmark Specification"; recently-used.xbel in the user's data
// folder). Nothing of it is kept elsewhere. What other programs noted there stays, as far as the library
// knows the format, and a list that cannot be read or written, or that another program changes meanwhile, is
// left alone without a word: it is a convenience.
class RecentDocuments
{
public:
    // `file` holds the list.
    explicit RecentDocuments(const QString &file = listOfTheDesktop());

    static QString listOfTheDesktop();

    // Notes that the document was in use just now.
    void add(const QString &path);
    // The latest first, at most ten, and only those that are still there.
    QStringList paths() const;
    // Takes all documents of this application out of the list.
    void clear();

private:
    QString m_file;
};
