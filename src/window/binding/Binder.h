#pragma once

#include "window/binding/Binding.h"
#include "window/controls/ActionDispatcher.h"
#include "window/controls/WholeTextSheet.h"

class ColorWell;
class FieldText;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QStackedWidget;

// Connects the controls and items of an interface file with a document. Dynamic properties in the interface
// file say what to connect, so that a new field needs a new widget but no new code:
//
// clang-format off
//   bindValue            key path of the value that the control shows. Fields, switches and colour wells also write
//                        it, fields at every keystroke; labels, read-only texts and stacks of pages only show it.
//                        A control of a selection is disabled while nothing is selected. If the selected objects
//                        have different values, it shows "Multiple Values", and input is written to all of them.
//   transformer          name of the transformer between value and control
//   bindFormat           text of a label, in which %1 is replaced by the value
//   bindVisible          condition, see BindingExpression; with the transformer visibleTransformer
//   bindEnabled          condition, see BindingExpression; with the transformer enabledTransformer
//   bindShowsText        condition under which a password field shows its text
//   bindLink             condition under which a read-only text is a link, which sends the action
//   bindToolTip          key path of a caption for the tool tip and the accessible name, in the form of bindFormat
//   bindContent          rows of a pop-up: "<controller>.arrangedObjects.<key>"
//   bindSelectedObject   key path of the object whose row the pop-up shows
//   action               name of the action that is sent along the responder chain when the control is used
//   actionSender         name of the control that is the sender instead
//   tag                  number of the control, which the action gets with its sender
// clang-format on
//
// Texts are shown as plain text. Each binding is a child of its control. The document must outlive the
// Binder, and the Binder must exist as long as the controls are used.
class Binder : public QObject
{
    Q_OBJECT

public:
    // Called after the user changed a value, with the tag of the control. `controller` is the one whose
    // selected objects were changed, or null if a caption was changed.
    using TextDidChange = std::function<void(const Foundation::ArrayController *controller, int tag)>;

    Binder(QObject *document, ActionDispatcher &dispatcher, TextDidChange textDidChange,
           ShowWholeText showWholeText = {});

    // Connects `interface` and all widgets and items below it.
    void bind(QWidget *interface);

private:
    Binding *follow(QObject *control, const char *property, const char *transformerProperty,
                    Binding::Show show);
    void bindItem(QAction *item);
    void bindControl(QWidget *control);
    void bindConditions(QWidget *control);
    void bindValue(QWidget *control);
    template <class Field>
    void bindField(Field *field);
    void bindSwitch(QCheckBox *box);
    void bindLabel(QLabel *label);
    void bindReadOnlyText(FieldText *text);
    void bindColorWell(ColorWell *well);
    void bindPages(QStackedWidget *pages);
    void bindPopUp(QComboBox *popUp);
    void bindAction(QWidget *control);
    // Returns false if nothing was written.
    static bool write(const Binding &binding, const Foundation::Value &value);
    void showTextToEdit(QWidget *field, const Binding *binding);
    void writeInput(const Binding &binding, const Foundation::Value &value, int tag);

    QObject *m_document;
    ActionDispatcher &m_dispatcher;
    TextDidChange m_textDidChange;
    ShowWholeText m_showWholeText;
};
