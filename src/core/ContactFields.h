#pragma once

#include "values/Key.h"

#include <vector>

// Everything that the program knows about one field of a contact. A new field is a new row of the table in
// ContactFields.cpp; the places where it is shown stand in the interface files.
struct ContactField
{
    Foundation::Key key;
    const char16_t *textInNewRecord; // null: absent from a new record
    const char16_t *caption;         // as a new document names the field; null: no caption
    const char16_t *exportTitle;     // null: neither exported nor imported
    int exportPlace;                 // in the order of exports and imports, from 1; 0: none
    // Of the field's controls, and the number of its open flag among the captions, from 1; 0: it opens
    // nothing.
    int tag;
    bool opensByDefault; // whether a new document has the open flag set
    bool isSearched;
    // In the order in which the fields of an old release are read, from 1; 0: no old release has the field.
    int oldReleasePlace;
};

// All fields, in the order of the captions and of the texts in a new record.
const std::vector<ContactField> &contactFields();
// Those that have a place, in the order of their places; `place` is one of the three numbers of a field.
std::vector<const ContactField *> contactFieldsBy(int ContactField::*place);
// Null for a tag that no field has.
const ContactField *contactFieldOfTag(int tag);
