#pragma once

#include "foundation/ArrayController.h"
#include "window/FieldText.h"
#include "window/TextLabel.h"

// The head of the view that shows a contact to be read: its name, and below it the company, or of a company
// the person. With several contacts selected it tells how many. The fields below are bound in the interface
// file.
class RecordCard : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        FieldText *name;
        FieldText *subtitle;
    };

    // Nothing is owned. The controller must outlive the parent.
    RecordCard(Foundation::ArrayController *records, Parts parts, QObject *parent);

    void refresh();

private:
    Foundation::ArrayController *m_records;
    Parts m_parts;
};
