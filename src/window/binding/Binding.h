#pragma once

#include "platform/ValueTransformer.h"
#include "window/binding/KeyPath.h"

#include <functional>
#include <vector>

// The value of a control as an interface file describes it: a key path and the name of a transformer (null
// for none). A condition may consist of several key paths, joined by "|" (at least one must hold) or by "&"
// (all must hold). A leading "!" negates the whole condition.
class BindingExpression
{
public:
    // `alike` decides which values of several selected objects count as equal.
    BindingExpression(QObject *root, const QString &text, const QString &transformerName,
                      Foundation::ArrayController::Likeness alike);

    // The key paths in such a text.
    static QStringList keyPaths(const QString &text);

    // The value at the first key path, converted by the transformer.
    BoundValue value() const;
    // Whether the condition holds. A boolean holds if it is true, a text if it is not empty, any other value
    // if it is not Null.
    bool holds() const;
    // Converts the value back and sets it at the first key path. Returns false if the transformer has no
    // reverse or KeyPath::setValue() returns false.
    bool setValue(const Foundation::Value &value) const;

    const KeyPath &keyPath() const { return m_keyPaths.front(); }
    const std::vector<KeyPath> &allKeyPaths() const { return m_keyPaths; }

private:
    std::vector<KeyPath> m_keyPaths;
    bool m_isNegated;
    bool m_needsAll; // joined by "&"
    Foundation::ArrayController::Likeness m_alike;
    std::shared_ptr<Foundation::ValueTransformer> m_transformer;
};

// Keeps one property of one control up to date with an expression.
class Binding : public QObject
{
    Q_OBJECT

public:
    using Show = std::function<void(const BindingExpression &expression)>;

    // Shows the value now and after each change. `parent` is the control.
    Binding(BindingExpression expression, Show show, QObject *parent);

    const BindingExpression &expression() const { return m_expression; }
    // True while the value is being shown. Signals of the control are then no input.
    bool isShowing() const { return m_isShowing; }

    Q_INVOKABLE void refresh();
    // Calls refresh() once on the next turn of the event loop, however often this is called before.
    Q_INVOKABLE void refreshLater();

private:
    BindingExpression m_expression;
    Show m_show;
    bool m_isShowing = false;
    bool m_isRefreshPending = false;
};
