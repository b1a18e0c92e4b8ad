#pragma once

#include <QString>

class QObject;

// The release number as people read it, the ways to the maker, and the alerts for data of a newer release.
//
// Actions take a sender and ignore it. Nothing is shown when an address does not open.
class VLAppSupportUtility
{
public:
    // The release of this application, its only definition. The decimal digits read as major, minor and
    // patch, the last two groups with two digits each. The format number of documents is another number.
    static constexpr qint64 ApplicationRelease = 30602;
    static const QString ApplicationName;

    VLAppSupportUtility() = delete;

    // "3.6.2" for 30602, "3.6" for 30600. Empty for numbers of fewer than four digits. A four-digit number
    // keeps the leading zero of its patch: "1.2.03" for 1203, "1.2.00" for 1200.
    static QString calcReleaseString(qint64 release);

    // Begins a mail to the support mailbox, with release and system in its subject.
    static void emailUs(QObject *sender);
    // The maker's home page, the product's page, the maker's social media page.
    static void visitUs(QObject *sender);
    static void visitAppUrl(QObject *sender);
    static void visitTwitter(QObject *sender);

    // Run a modal alert that offers the last version. True when the user took the offer; visitUs was then
    // called.
    static bool sayFilecreatedWithANewerVersion(QObject *sender);
    static bool dataIn_ApplicationSupportFolder_CreatedWithANewerVersion(QObject *sender);
};
