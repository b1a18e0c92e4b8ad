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

// Connects the controls and items of an interface file with a document by their dynamic properties, so that a
// new field is a new widget and no new code:
//
//   bindValue           key path of what the control shows. Fields and switches write it back at every
//   keystroke;
//                       labels, read-only texts and stacks of pages only show. A field of a selection is
//                       disabled without one, and of objects that disagree it shows "Multiple Values" and
//                       writes to all.
//   transformer         name of a transformer between value and control
//   bindFormat          text of a label, %1 being the value
//   bindVisible, bindEnabled           conditions, see BindingExpression
//   visibleTransformer, enabledTransformer
//   bindShowsText       condition under which a password field shows what is typed
//   bindLink            condition under which a text to be read is a link, which sends the action
//   bindToolTip         what the tool tip and the name for assistive technology say, in bindFormat
//   bindContent         rows of a pop-up: "<controller>.arrangedObjects.<key>"
//   bindSelectedObject  key path to the object whose row the pop-up shows
//   action              sent along the responder chain when the control is used
//   actionSender        name of the control that stands as the sender instead
//   tag                 number that the sender carries
//
// Texts are shown as they are: no mark-up is read, "&" is a character. A binding lives as long as its
// control. The document must outlive the Binder, and the Binder all use of the controls.
class Binder : public QObject
{
    Q_OBJECT

public:
    // Called after a keystroke changed a value of the objects selected in a controller, or for a null one a
    // caption, with the tag of the field.
    using TextDidChange = std::function<void(const Foundation::ArrayController *controller, int tag)>;

    Binder(QObject *document, ActionDispatcher &dispatcher, TextDidChange textDidChange,
           ShowWholeText showWholeText = {});

    // Connects all that lies below the interface, and the interface itself.
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
    // False if nothing was to be written.
    static bool write(const Binding &binding, const Foundation::Value &value);
    void showTextToEdit(QWidget *field, const Binding *binding);
    void writeInput(const Binding &binding, const Foundation::Value &value, int tag);

    QObject *m_document;
    ActionDispatcher &m_dispatcher;
    TextDidChange m_textDidChange;
    ShowWholeText m_showWholeText;
};
