#include "browse/VLCategoryArrayController.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"

#include <QSet>

#include <algorithm>

using Foundation::Key;
using Foundation::Value;

namespace
{
constexpr int LastNumberTried = 31999;
}

bool VLCategoryArrayController::testForUnusedString(const QString &text, const Key &forKey) const
{
    const Value wanted(text);
    const auto categories = arrangedObjects();
    return std::none_of(categories.begin(), categories.end(),
                        [&](const Object &row) { return row->value(forKey) == wanted; });
}

QString VLCategoryArrayController::unusedCategoryNameWithPostfix(const QString &word) const
{
    // Collects the names first, so that each try takes constant time.
    QSet<QString> taken;
    for (const Object &row : arrangedObjects())
        taken.insert(Foundation::displayText(row->value(CategoryKey::cat_category)));
    QString name = word;
    for (int number = 1; taken.contains(name) && number <= LastNumberTried; ++number)
        name = QStringLiteral("%1 %2").arg(word, QString::number(number));
    return name;
}

VLCategoryArrayController::Object VLCategoryArrayController::newObject()
{
    Object row = ArrayController::newObject();
    row->setValue(CategoryKey::cat_category, unusedCategoryNameWithPostfix(QStringLiteral("Untitled")));
    return row;
}

VLCategoryArrayController::Object VLCategoryArrayController::getLastCategory() const
{
    const auto &rows = content()->values;
    return rows.empty() ? nullptr : rows.back().dictionary();
}
