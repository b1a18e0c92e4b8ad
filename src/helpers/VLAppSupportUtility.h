#pragma once

#include <QCoreApplication>
#include <QString>

class QObject;

// The release number and its readable form, the pages and the mail address of the maker, and the alerts for
// data of a newer release.
//
// Actions ignore their sender. If an address cannot be opened, no error is shown.
class VLAppSupportUtility
{
    Q_DECLARE_TR_FUNCTIONS(VLAppSupportUtility)
public:
    // The release number of this application: major, minor and patch as decimal digits, minor and patch with
    // two digits each. CMakeLists.txt has the same release as PROJECT_VERSION; change both together. The
    // format number of documents is another number.
    static constexpr qint64 ApplicationRelease = 30602;
    static const QString ApplicationName;
    // What the application is called in names of files and folders.
    static const QString NameInPaths;

    VLAppSupportUtility() = delete;

    // "3.6.2" for 30602, "3.6" for 30600. Empty for numbers of fewer than four digits. A four-digit number
    // keeps the leading zero of its patch: "1.2.03" for 1203, "1.2.00" for 1200.
    static QString calcReleaseString(qint64 release);

    // Opens a mail to the support mailbox, with release and system in its subject. Prescribed; no caller yet.
    static void emailUs(QObject *sender);
    // Open the home page of the maker, the page of the product, and the social media page of the maker. Only
    // visitUs() has a caller so far; the others are prescribed.
    static void visitUs(QObject *sender);
    static void visitAppUrl(QObject *sender);
    static void visitTwitter(QObject *sender);

    // Show a modal alert that offers the newest version. Return true if the user accepted; visitUs() was then
    // called already. The second operation is prescribed and has no caller yet.
    static bool sayFilecreatedWithANewerVersion(QObject *sender);
    static bool dataIn_ApplicationSupportFolder_CreatedWithANewerVersion(QObject *sender);
};
