#pragma once

#include "values/Dictionary.h"

// The name under which a record is shown: for a company its `company`, for a person first and last name
// separated by a blank. It is computed whenever it is shown and never stored. Empty if the record has no
// name.
QString displayedNameOfRecord(const Foundation::Dictionary &record);
// First and last name, also for a company.
QString personNameOfRecord(const Foundation::Dictionary &record);
