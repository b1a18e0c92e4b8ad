#include "browse/RecordName.h"

#include "core/RecordModel.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

using namespace Foundation;

namespace
{

Ref<Dictionary> newPerson(const Value &firstName, const Value &lastName, const Value &company = {},
                          bool isCompany = false)
{
    const auto record = Dictionary::create();
    record->setValue(RecordKey::firstName, firstName);
    record->setValue(RecordKey::lastName, lastName);
    record->setValue(RecordKey::company, company);
    record->setValue(RecordKey::isCompany, Value(isCompany));
    return record;
}

const Value none;
const Value blank = u""_qs;
const Value ada = u"Ada"_qs;
const Value byron = u"Byron"_qs;
const Value acme = u"<i>Acme</i>"_qs;

TEST(RecordName, FollowsTheSwitchAndLeavesNoLooseBlank)
{
    const std::tuple<const char *, Ref<Dictionary>, QString> cases[] = {
        {"both names", newPerson(ada, byron, acme), u"Ada Byron"_qs},
        {"no first name, no leading blank", newPerson(none, byron), u"Byron"_qs},
        {"an empty first name as well", newPerson(blank, byron), u"Byron"_qs},
        {"no last name", newPerson(ada, none), u"Ada"_qs},
        {"an empty last name is appended all the same", newPerson(ada, blank), u"Ada "_qs},
        {"no name at all", newPerson(none, none), QString()},
        {"a company", newPerson(ada, byron, acme, true), u"<i>Acme</i>"_qs},
        {"a company with an empty name shows that", newPerson(ada, byron, blank, true), u""_qs},
        {"a company without the key falls back", newPerson(ada, byron, none, true), u"Ada Byron"_qs},
    };
    for (const auto &[rule, record, name] : cases)
        EXPECT_EQ(displayedNameOfRecord(*record), name.isNull() ? u""_qs : name) << rule;
}

} // namespace
