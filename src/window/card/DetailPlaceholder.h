#pragma once

#include "lifecycle/MyDocument.h"

class ArrayTable;
class TextLabel;

// Shows a text in place of the detail while there is not exactly one contact to show: what is selected, and
// what the user can do.
class DetailPlaceholder : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        QWidget *placeholder;
        TextLabel *title;
        TextLabel *hint;
        QWidget *detail;   // hidden while the placeholder is shown
        ArrayTable *table; // gets a hint too
    };

    // The arguments are not owned. The document must outlive the parent.
    DetailPlaceholder(MyDocument *document, Parts parts, QObject *parent);

    void refresh();

private:
    struct Texts
    {
        QString title;
        QString hint;
    };

    // Null texts if the detail has something to show.
    Texts texts() const;

    MyDocument *m_document;
    Parts m_parts;
};
