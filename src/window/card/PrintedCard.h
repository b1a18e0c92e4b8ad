#pragma once

#include "lists/ArrayController.h"
#include "window/binding/Binder.h"
#include "window/controls/ActionDispatcher.h"

#include <QMainWindow>

#include <memory>

class VLWhiteView;

namespace Ui
{
class MyDocument;
}

// The page of one contact, made from the interface file of the window but never shown. Printing can lay it
// out for the paper without changing what the user sees.
class PrintedCard : public QObject
{
    Q_OBJECT
    // These have the names that the bindings of the page use.
    Q_PROPERTY(Foundation::ArrayController *myArrayController READ myArrayController CONSTANT)
    Q_PROPERTY(Foundation::Value myLabelDictionary READ myLabelDictionary CONSTANT)

public:
    explicit PrintedCard(const Foundation::Ref<Foundation::Dictionary> &labels);
    ~PrintedCard() override;

    void show(const Foundation::ArrayController::Object &record);
    VLWhiteView &page();

    Foundation::ArrayController *myArrayController() { return &m_records; }
    Foundation::Value myLabelDictionary() const { return m_labels; }

private:
    Foundation::Value m_labels;
    Foundation::ArrayController m_records; // contains the one contact
    QMainWindow m_window;                  // never shown
    std::unique_ptr<Ui::MyDocument> m_ui;
    ActionDispatcher m_dispatcher;
    Binder m_binder;
};
