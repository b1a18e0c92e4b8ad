#pragma once

#include "Stage.h"

// The main job from one end to the other, in two acts of one application each: a document is made, filled and
// saved; then it is opened again, read and changed.
class Journey
{
public:
    Journey(Stage &stage, const QString &file)
        : m_stage(stage)
        , m_file(file)
    {
    }

    // Both end by quitting the application.
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
    QStringList namesInList() const;
    void selectRow(int row);

    Stage &m_stage;
    QString m_file;
};
