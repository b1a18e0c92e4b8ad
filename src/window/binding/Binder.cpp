#include "window/binding/Binder.h"

#include "values/DisplayText.h"
#include "values/OpaqueObject.h"
#include "window/binding/BoundField.h"
#include "window/binding/ControlAccess.h"
#include "window/binding/FieldText.h"
#include "window/controls/ColorWell.h"
#include "window/controls/InterfaceProperties.h"
#include "window/controls/SearchField.h"
#include "window/controls/ShownPart.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QStackedWidget>

using Foundation::displayText;
using Foundation::Value;

namespace
{

// Selected objects have a common value if the control shows the same for all of them.
Foundation::ArrayController::Likeness likenessFor(const QObject *control)
{
    if (qobject_cast<const QCheckBox *>(control))
        return [](const Value &a, const Value &b) { return a.boolValue() == b.boolValue(); };
    return qobject_cast<const ColorWell *>(control) ? nullptr : Foundation::isShownAlike;
}

} // namespace

Binder::Binder(QObject *document, ActionDispatcher &dispatcher, TextDidChange textDidChange,
               ShowWholeText showWholeText)
    : m_document(document)
    , m_dispatcher(dispatcher)
    , m_textDidChange(std::move(textDidChange))
    , m_showWholeText(std::move(showWholeText))
{
}

void Binder::bind(QWidget *interface)
{
    for (QAction *item : interface->findChildren<QAction *>()) {
        if (!textProperty(item, InterfaceProperty::Action).isEmpty())
            bindItem(item);
    }
    bindControl(interface);
    for (QWidget *control : interface->findChildren<QWidget *>())
        bindControl(control);
}

Binding *Binder::follow(QObject *control, const char *property, const char *transformerProperty,
                        Binding::Show show)
{
    const QString text = textProperty(control, property);
    if (text.isEmpty())
        return nullptr;
    const QString transformer = transformerProperty ? textProperty(control, transformerProperty) : QString();
    return new Binding(BindingExpression(m_document, text, transformer, likenessFor(control)),
                       std::move(show), control);
}

void Binder::bindItem(QAction *item)
{
    const Binding *enabled =
        follow(item, InterfaceProperty::BindEnabled, InterfaceProperty::EnabledTransformer,
               [this](const BindingExpression &) { m_dispatcher.validateLater(); });
    m_dispatcher.addItem(item, enabled ? [enabled] { return enabled->expression().holds(); }
                                       : ActionDispatcher::Condition());
}

void Binder::bindControl(QWidget *control)
{
    bindConditions(control);
    bindValue(control);
    bindAction(control);
}

void Binder::bindConditions(QWidget *control)
{
    follow(control, InterfaceProperty::BindVisible, InterfaceProperty::VisibleTransformer,
           [control](const BindingExpression &expression) { control->setVisible(expression.holds()); });
    follow(control, InterfaceProperty::BindEnabled, InterfaceProperty::EnabledTransformer,
           [control](const BindingExpression &expression) { control->setEnabled(expression.holds()); });
    const QString format = textProperty(control, InterfaceProperty::BindFormat);
    follow(control, InterfaceProperty::BindToolTip, InterfaceProperty::Transformer,
           [control, format](const BindingExpression &expression) {
               const QString caption = shownLine(displayText(expression.value().value));
               const QString text =
                   format.arg(nameOfField(caption, textProperty(control, InterfaceProperty::BindToolTip)));
               control->setAccessibleName(text);
               control->setToolTip(text.toHtmlEscaped());
           });
    if (auto *field = qobject_cast<QLineEdit *>(control)) {
        follow(field, InterfaceProperty::BindShowsText, nullptr,
               [field](const BindingExpression &expression) {
                   field->setEchoMode(expression.holds() ? QLineEdit::Normal : QLineEdit::Password);
               });
    }
}

void Binder::bindValue(QWidget *control)
{
    if (auto *line = qobject_cast<QLineEdit *>(control))
        bindField(line);
    else if (auto *text = qobject_cast<QPlainTextEdit *>(control))
        bindField(text);
    else if (auto *box = qobject_cast<QCheckBox *>(control))
        bindSwitch(box);
    else if (auto *label = qobject_cast<QLabel *>(control))
        bindLabel(label);
    else if (auto *readOnly = qobject_cast<FieldText *>(control))
        bindReadOnlyText(readOnly);
    else if (auto *well = qobject_cast<ColorWell *>(control))
        bindColorWell(well);
    else if (auto *pages = qobject_cast<QStackedWidget *>(control))
        bindPages(pages);
    else if (auto *popUp = qobject_cast<QComboBox *>(control))
        bindPopUp(popUp);
}

template <class Field>
void Binder::bindField(Field *field)
{
    const auto bound = std::make_shared<BoundField<Field>>(field);
    const Binding *binding =
        follow(field, InterfaceProperty::BindValue, InterfaceProperty::Transformer,
               [bound](const BindingExpression &expression) { bound->show(expression); });
    if (!binding)
        return;
    // Not only for edits of the user, because assistive technology and input methods change the text too.
    connect(field, &Field::textChanged, this, [this, field, bound, binding] {
        if (!binding->isShowing() && bound->hasInput(binding->expression()))
            writeInput(*binding, textOfField(field), tagOf(field));
    });
    connect(bound->wholeTextButton(), &QPushButton::clicked, this,
            [this, field, binding] { showTextToEdit(field, binding); });
}

void Binder::showTextToEdit(QWidget *field, const Binding *binding)
{
    const auto subject = binding->expression().keyPath().subject();
    const auto write = [this, field, binding = QPointer(binding), subject](const QString &text) {
        if (binding && binding->expression().keyPath().subject() == subject)
            writeInput(*binding, text, tagOf(field));
    };
    if (m_showWholeText)
        m_showWholeText(field, displayText(binding->expression().value().value), write);
}

void Binder::bindSwitch(QCheckBox *box)
{
    const Binding *binding = follow(box, InterfaceProperty::BindValue, InterfaceProperty::Transformer,
                                    [box](const BindingExpression &expression) {
                                        const BoundValue bound = expression.value();
                                        box->setTristate(bound.isMixed);
                                        box->setCheckState(bound.isMixed             ? Qt::PartiallyChecked
                                                           : bound.value.boolValue() ? Qt::Checked
                                                                                     : Qt::Unchecked);
                                        enableBySelection(box, bound);
                                    });
    if (!binding)
        return;
    connect(box, &QCheckBox::stateChanged, this, [this, box, binding](int state) {
        if (binding->isShowing() || state == Qt::PartiallyChecked)
            return;
        const BoundValue bound = binding->expression().value();
        if (bound.isMixed || bound.value.boolValue() != (state == Qt::Checked))
            writeInput(*binding, Value(state == Qt::Checked), tagOf(box));
    });
}

void Binder::bindLabel(QLabel *label)
{
    label->setTextFormat(Qt::PlainText);
    const QString format = textProperty(label, InterfaceProperty::BindFormat);
    follow(label, InterfaceProperty::BindValue, InterfaceProperty::Transformer,
           [label, format](const BindingExpression &expression) {
               const QString value = shownLine(displayText(expression.value().value));
               const QString text = format.isEmpty() ? value : format.arg(value);
               // In a label with a buddy, "&" would mark a mnemonic.
               label->setText(label->buddy() ? titleOfText(text) : text);
               if (label->buddy()) {
                   // The accessible name of a pop-up always comes from its label.
                   const QString name = nameOfField(text, textProperty(label, InterfaceProperty::BindValue));
                   label->setAccessibleName(text.isEmpty() ? name : QString());
                   label->buddy()->setAccessibleName(name);
               }
           });
}

void Binder::bindReadOnlyText(FieldText *text)
{
    const Binding *binding =
        follow(text, InterfaceProperty::BindValue, InterfaceProperty::Transformer,
               [text](const BindingExpression &expression) {
                   const BoundValue bound = expression.value();
                   text->setEnabled(!bound.isMixed);
                   text->showText(bound.isMixed ? tr("Multiple Values") : displayText(bound.value));
               });
    connect(text, &FieldText::wholeTextWanted, this, [this, text, binding] {
        if (binding && m_showWholeText)
            m_showWholeText(text, displayText(binding->expression().value().value), nullptr);
    });
    follow(text, InterfaceProperty::BindLink, nullptr,
           [text](const BindingExpression &expression) { text->setLink(expression.holds()); });
}

void Binder::bindColorWell(ColorWell *well)
{
    const Binding *binding = follow(well, InterfaceProperty::BindValue, InterfaceProperty::Transformer,
                                    [well](const BindingExpression &expression) {
                                        const BoundValue bound = expression.value();
                                        const auto opaque = bound.value.opaque();
                                        const auto *color =
                                            dynamic_cast<const Foundation::ColorObject *>(opaque.get());
                                        well->setColor(color ? color->color : Foundation::Color());
                                        enableBySelection(well, bound);
                                    });
    if (!binding)
        return;
    connect(well, &ColorWell::colorChosen, this, [well, binding] {
        write(*binding,
              Foundation::Ref<Foundation::OpaqueObject>(new Foundation::ColorObject(well->color())));
    });
}

void Binder::bindPages(QStackedWidget *pages)
{
    follow(pages, InterfaceProperty::BindValue, InterfaceProperty::Transformer,
           [pages](const BindingExpression &expression) {
               pages->setCurrentIndex(expression.value().value.intValue());
           });
}

void Binder::bindPopUp(QComboBox *popUp)
{
    const KeyPath rows(m_document, textProperty(popUp, InterfaceProperty::BindContent));
    const KeyPath selected(m_document, textProperty(popUp, InterfaceProperty::BindSelectedObject));
    const auto showSelected = [popUp, rows, selected,
                               placeholder = popUp->placeholderText()](const BindingExpression &) {
        const BoundValue bound = selected.value();
        popUp->setPlaceholderText(bound.isMixed ? tr("Multiple Values") : placeholder);
        popUp->setCurrentIndex(rowOfObject(rows, bound.value));
        enableBySelection(popUp, bound);
    };
    follow(popUp, InterfaceProperty::BindContent, nullptr,
           [popUp, rows, showSelected](const BindingExpression &expression) {
               setRowsOfPopUp(popUp, rows);
               showSelected(expression);
           });
    follow(popUp, InterfaceProperty::BindSelectedObject, nullptr, showSelected);
}

void Binder::bindAction(QWidget *control)
{
    const QString action = textProperty(control, InterfaceProperty::Action);
    if (action.isEmpty())
        return;
    const QString senderName = textProperty(control, InterfaceProperty::ActionSender);
    const QWidget *sender =
        senderName.isEmpty() ? control : control->window()->findChild<QWidget *>(senderName);
    const auto send = [this, action, sender] { m_dispatcher.send(action, senderOfControl(sender)); };
    if (auto *button = qobject_cast<QAbstractButton *>(control))
        connect(button, &QAbstractButton::clicked, this, send);
    else if (auto *link = qobject_cast<FieldText *>(control))
        connect(link, &FieldText::opened, this, send);
    else if (auto *search = qobject_cast<SearchField *>(control))
        connect(search, &QLineEdit::textChanged, this, send); // Its value was written before.
    else if (auto *line = qobject_cast<QLineEdit *>(control))
        connect(line, &QLineEdit::returnPressed, this, send);
    else if (auto *popUp = qobject_cast<QComboBox *>(control))
        connect(popUp, &QComboBox::activated, this, send);
}

bool Binder::write(const Binding &binding, const Value &value)
{
    return !binding.isShowing() && binding.expression().setValue(value);
}

void Binder::writeInput(const Binding &binding, const Value &value, int tag)
{
    if (write(binding, value) && binding.expression().keyPath().isOfContent())
        m_textDidChange(binding.expression().keyPath().controller(), tag);
}
