#pragma once

#include "browse/BrowseWindow.h"

#include <QStringList>

// A PopUpMenu without a widget. It begins with the two items that the interface file provides.
class ScriptedPopUpMenu : public PopUpMenu
{
public:
    qsizetype numberOfItems() const override { return titles.size(); }
    void removeItemAtIndex(qsizetype index) override
    {
        titles.removeAt(index);
        actions.removeAt(index);
    }
    void insertItem(const QString &title, const QString &action, qsizetype index) override
    {
        titles.insert(index, title);
        actions.insert(index, action);
    }
    QString titleOfSelectedItem() const override { return selected; }
    void selectItemWithTitle(const QString &title) override
    {
        ++selections;
        selected = titles.contains(title) ? title : QString();
    }

    QStringList titles = {u"Category"_qs, u"Show All"_qs};
    QStringList actions = {QString(), u"showAllCategory"_qs};
    QString selected = u"Show All"_qs;
    int selections = 0;
};
