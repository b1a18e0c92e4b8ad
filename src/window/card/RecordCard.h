#pragma once

#include "lists/ArrayController.h"
#include "window/binding/FieldText.h"
#include "window/controls/TextLabel.h"
#include "window/controls/WholeTextSheet.h"

// The head of the card of a contact: the name, and below it the company, or the person if the contact is a
// company. With several selected contacts it shows their number. The fields below are bound in the interface
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

    // The arguments are not owned. The controller must outlive the parent.
    RecordCard(Foundation::ArrayController *records, Parts parts, const ShowWholeText &showWholeText,
               QObject *parent);

    void refresh();

private:
    // Of the single selected record.
    QString name() const;
    QString subtitle() const;
    const Foundation::Dictionary &firstRecord() const;

    Foundation::ArrayController *m_records;
    Parts m_parts;
};
