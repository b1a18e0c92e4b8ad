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

// The page of one contact away from the screen, made from the interface file of the window. Printing lays it
// out for the paper and changes nothing that the user sees.
class PrintedCard : public QObject
{
    Q_OBJECT
    // As the page's bindings name them.
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
    Foundation::ArrayController m_records; // the one contact
    QMainWindow m_window;                  // never shown
    std::unique_ptr<Ui::MyDocument> m_ui;
    ActionDispatcher m_dispatcher;
    Binder m_binder;
};
