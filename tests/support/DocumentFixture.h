#pragma once

#include "documents/DocumentController.h"
#include "lifecycle/MyDocument.h"
#include "support/Files.h"
#include "support/Printers.h"
#include "support/ScriptedDocumentWindow.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTemporaryDir>

#include <memory>

// Documents with scripted windows and a main queue that the test drains, with files in a temporary folder.
class DocumentFixture : public testing::Test
{
protected:
    static inline const QString password = u"correct horse"_qs;

    // Replaces the previous document.
    MyDocument &newDocument()
    {
        document = std::make_unique<MyDocument>();
        showWindow();
        return *document;
    }
    bool open(const QString &path)
    {
        document = std::make_unique<MyDocument>();
        const auto opened = document->readFromFile(path);
        refusal = opened.words();
        if (opened)
            showWindow();
        return opened.succeeded();
    }
    // A new document with a password.
    MyDocument &newProtectedDocument()
    {
        newDocument().setPlainPassword(password);
        return *document;
    }
    void submit(const QString &text)
    {
        Foundation::ActionSender field;
        field.stringValue = text;
        document->submitPasswordToDecrypt(field);
    }
    void saveTo(const QString &path) { ASSERT_EQ(document->writeToFile(path).words(), QString()); }
    void typeNote(const QString &text)
    {
        document->myArrayController()->setValueForSelection(RecordKey::note, text);
        document->controlTextDidChange(0);
    }
    QString note() const { return document->myArrayController()->valueForSelection(u"note").stringValue(); }
    // Closed documents are deleted at the end of the event.
    static void endEvent() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    QString pathOf(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }

    ManualQueue queue;
    RecordingWorkspace workspace;
    ScriptedModalAlerts modalAlerts;
    QTemporaryDir folder;
    std::unique_ptr<ScriptedDocumentWindow> window;
    std::unique_ptr<MyDocument> document;
    QString refusal;

private:
    void showWindow()
    {
        window = std::make_unique<ScriptedDocumentWindow>();
        document->setWindow(window.get());
        document->windowControllerDidLoadNib();
        queue.drain();
    }
};
