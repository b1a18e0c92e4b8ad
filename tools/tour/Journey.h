#pragma once

#include "Stage.h"

// The tour, in two acts with one run of the application each. In the first act a document is created, filled
// and saved; in the second it is opened again, read and changed.
class Journey
{
public:
    Journey(Stage &stage, const QString &file)
        : m_stage(stage)
        , m_file(file)
    {
    }

    // Both acts end by quitting the application.
    void makeDocument();
    void openDocument();

private:
    void giveFirstPassword();
    void addContacts();
    void chooseCategories();
    void changeCaptions();
    void printContact();
    void resizeWindow();
    void readContacts();
    void filterContacts();
    void duplicateAndUndo();
    void saveAndQuit();
    void unlock();
    void checkContent();
    void deleteAndUndo();
    void lockAndUnlock();
    void changePassword();
    void editSeveral();
    void closeWithQuestion();

    void enterPasswords(const QString &first, const QString &second);
    void addContact(const QStringList &fields);
    void makeCategory(const QString &name, const QString &color);

    Stage &m_stage;
    QString m_file;
};
