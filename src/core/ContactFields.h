#pragma once

#include "values/Key.h"

#include <vector>

// All properties of one field of a contact. For a new field, add a row to the table in ContactFields.cpp, and
// the controls to the interface files; see CONTRIBUTING.md.
struct ContactField
{
    Foundation::Key key;
    const char16_t *textInNewRecord; // null if a new record does not have the field
    const char16_t *caption;         // the default caption; null if there is none
    const char16_t *exportTitle;     // null if the field is not exported or imported
    int exportPlace;                 // position in exports and imports, from 1; 0 for none
    // The tag of the controls of the field, and the number of its flag ("open01" and so on), from 1; 0 if the
    // field cannot be a link.
    int tag;
    bool opensByDefault; // whether the flag is set in a new document
    bool isSearched;
    // The position in the order in which the fields of old releases are read, from 1; 0 if no old release has
    // the field.
    int oldReleasePlace;
};

// All fields, in the order of the captions and of the texts in a new record.
const std::vector<ContactField> &contactFields();
// The fields for which `place` is not 0, sorted by `place`, which must be a pointer to one of the three
// numbers of a field.
std::vector<const ContactField *> contactFieldsBy(int ContactField::*place);
// The field with that tag, or null.
const ContactField *contactFieldOfTag(int tag);
