#pragma once

#include "lifecycle/MyDocument.h"

class ArrayTable;
class TextLabel;

// Stands in place of the detail while there is no one contact to show: says what there is, and what to do.
class DetailPlaceholder : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        QWidget *placeholder;
        TextLabel *title;
        TextLabel *hint;
        QWidget *detail;   // hidden meanwhile
        ArrayTable *table; // its own hint follows
    };

    // Nothing is owned. The document must outlive the parent.
    DetailPlaceholder(MyDocument *document, Parts parts, QObject *parent);

    void refresh();

private:
    struct Texts
    {
        QString title;
        QString hint;
    };

    // Null texts where the detail has something to show.
    Texts texts() const;

    MyDocument *m_document;
    Parts m_parts;
};
