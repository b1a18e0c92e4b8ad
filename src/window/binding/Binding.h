#pragma once

#include "platform/ValueTransformer.h"
#include "window/binding/KeyPath.h"

#include <functional>
#include <vector>

// What an interface file says of a value that a control follows: a key path, or for conditions several of
// them joined by "|", of which one must hold, or by "&", of which all must hold, with "!" in front for the
// opposite of it all; and the name of a transformer, null for none.
class BindingExpression
{
public:
    // The likeness says which values of several selected objects agree.
    BindingExpression(QObject *root, const QString &text, const QString &transformerName,
                      Foundation::ArrayController::Likeness alike);

    // The key paths that such a text names.
    static QStringList keyPaths(const QString &text);

    // Of the first key path, as the transformer turns it.
    BoundValue value() const;
    // A truth value holds if it is true, a text if it is not empty, anything else if it is there.
    bool holds() const;
    // Back through the transformer. False where that has no way back or KeyPath::setValue() says so.
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

// Keeps one property of one control in step with an expression.
class Binding : public QObject
{
    Q_OBJECT

public:
    using Show = std::function<void(const BindingExpression &expression)>;

    // Shows the value at once and from then on. Lives as long as its parent, the control.
    Binding(BindingExpression expression, Show show, QObject *parent);

    const BindingExpression &expression() const { return m_expression; }
    // True while the value is being shown: what the control then says is no input.
    bool isShowing() const { return m_isShowing; }

    Q_INVOKABLE void refresh();
    // Once, on the next turn of the event loop, however often it is called: an edit of a hundred thousand
    // selected records tells as many times that something changed.
    Q_INVOKABLE void refreshLater();

private:
    BindingExpression m_expression;
    Show m_show;
    bool m_isShowing = false;
    bool m_isRefreshPending = false;
};
