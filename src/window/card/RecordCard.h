#pragma once

#include "lists/ArrayController.h"
#include "window/binding/FieldText.h"
#include "window/controls/TextLabel.h"
#include "window/controls/WholeTextSheet.h"

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
    RecordCard(Foundation::ArrayController *records, Parts parts, const ShowWholeText &showWholeText,
               QObject *parent);

    void refresh();

private:
    // Of the one record that is selected.
    QString name() const;
    QString subtitle() const;
    const Foundation::Dictionary &firstRecord() const;

    Foundation::ArrayController *m_records;
    Parts m_parts;
};
