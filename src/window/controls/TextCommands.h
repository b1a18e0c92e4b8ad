#pragma once

#include "window/controls/MenuItemValidator.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

// The commands on text, as the first responder of a window. They apply to the focused field. Undo and Redo
// apply to the field only if it has something to undo or redo, otherwise to the document.
class TextCommands : public QObject, public MenuItemValidator
{
    Q_OBJECT

public:
    explicit TextCommands(QWidget *window);

    // Whether the action currently applies to the focused field.
    bool takes(const QString &action) const;
    bool validateMenuItem(Foundation::MenuItem &item) override;

    Q_INVOKABLE void cut(const Foundation::ActionSender &sender);
    Q_INVOKABLE void copy(const Foundation::ActionSender &sender);
    Q_INVOKABLE void paste(const Foundation::ActionSender &sender);
    Q_INVOKABLE void selectAll(const Foundation::ActionSender &sender);
    Q_INVOKABLE void undo(const Foundation::ActionSender &sender);
    Q_INVOKABLE void redo(const Foundation::ActionSender &sender);

Q_SIGNALS:
    // The user pressed the keys of Undo or Redo. Sent before the menu handles them, so that its items can be
    // updated.
    void shortcutIsComing();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void focusMoved(QWidget *old, QWidget *now);
    void call(const char *slot);

    QWidget *m_window;
    QPointer<QWidget> m_focused;
};
