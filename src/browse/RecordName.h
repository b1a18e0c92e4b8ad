#pragma once

#include "values/Dictionary.h"

// The name under which a record is shown: of a company its `company`, of a person first and last name with
// one blank in between. Worked out whenever it is shown and never stored. Empty where the record has none.
QString displayedNameOfRecord(const Foundation::Dictionary &record);
// First and last name alone, also of a company.
QString personNameOfRecord(const Foundation::Dictionary &record);
