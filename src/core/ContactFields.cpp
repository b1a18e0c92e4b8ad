#include "core/ContactFields.h"

#include "core/RecordModel.h"

#include <algorithm>

const std::vector<ContactField> &contactFields()
{
    using namespace RecordKey;
    constexpr bool Opens = true;
    constexpr bool Searched = true;
    // Required: two captions have no colon. The positions of old releases are complete: a new field has 0.
    // clang-format off
    static const std::vector<ContactField> fields = {
        // key            in a new record  caption               export title        export  tag  open     searched   old
        {category,        nullptr,         u"Category:",         u"Category",         1,      0,  !Opens,  Searched,   3},
        {firstName,       u"First Name",   u"First name:",       u"First name",       2,      1,  !Opens,  Searched,  10},
        {lastName,        u"Last Name",    u"Last name:",        u"Last name",        3,      2,  !Opens,  Searched,  12},
        {company,         u"",             u"Company:",          u"Company",          4,      3,  !Opens,  Searched,   5},
        {phoneWork,       u"",             u"Phone work:",       u"Phone work",       5,      4,  !Opens,  Searched,  17},
        {faxWork,         u"",             u"Fax work:",         u"Fax work",         6,      5,  !Opens,  Searched,   9},
        {emailWork,       u"",             u"Email work:",       u"Email work",       8,      7,   Opens,  Searched,   7},
        {addressWork,     u"",             u"Address work:",     u"Address work",     7,      9,  !Opens,  Searched,   2},
        {webWork,         u"",             u"Web work:",         u"Web work",         9,      8,   Opens,  Searched,  20},
        {phonePersonal,   u"",             u"Phone personal:",   u"Phone personal",  10,     10,  !Opens,  Searched,  16},
        {faxPersonal,     u"",             u"Fax personal:",     u"Fax personal",    11,     11,  !Opens,  Searched,   8},
        {mobile,          u"",             u"Mobile personal:",  u"Mobile personal", 12,     12,  !Opens,  Searched,  13},
        {pager,           u"",             u"Mobile work",       u"Mobile work",     13,      6,  !Opens,  Searched,  15},
        {emailPersonal,   u"",             u"Email personal:",   u"Email personal",  14,     13,   Opens,  Searched,   6},
        {webPersonal,     u"",             u"Web personal:",     u"Web personal",    15,     14,   Opens,  Searched,  19},
        {addressPersonal, u"",             u"Address personal:", u"Address personal",16,     15,  !Opens,  Searched,   1},
        {note,            u"",             u"Note",              u"Note",            17,      0,  !Opens,  Searched,  14},
        {resultingName,   nullptr,         nullptr,              nullptr,             0,      0,  !Opens,  Searched,  18},
        {isCompany,       nullptr,         nullptr,              nullptr,             0,      0,  !Opens, !Searched,  11},
        {cat_uniqueID,    nullptr,         nullptr,              nullptr,             0,      0,  !Opens, !Searched,   4},
    };
    // clang-format on
    return fields;
}

std::vector<const ContactField *> contactFieldsBy(int ContactField::*place)
{
    std::vector<const ContactField *> fields;
    for (const ContactField &field : contactFields()) {
        if (field.*place > 0)
            fields.push_back(&field);
    }
    std::ranges::sort(fields, {}, [place](const ContactField *field) { return field->*place; });
    return fields;
}

const ContactField *contactFieldOfTag(int tag)
{
    const auto &fields = contactFields();
    const auto found = std::ranges::find(fields, tag, &ContactField::tag);
    return tag > 0 && found != fields.end() ? &*found : nullptr;
}
