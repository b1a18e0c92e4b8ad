#pragma once

#include "lists/ArrayController.h"
#include "platform/Actions.h"

// A list of rows with names. It finds unused names.
class VLCategoryArrayController : public Foundation::ArrayController
{
    Q_OBJECT

public:
    using ArrayController::ArrayController;

    // True if no shown row has exactly that text under the key. Prescribed; no caller yet.
    bool testForUnusedString(const QString &text, const Foundation::Key &forKey) const;
    // `word` if no row has that name, otherwise `word`, a blank and the first free number from 1 on.
    // Required: after 31999 tries the last name is returned, even if it is in use.
    QString unusedCategoryNameWithPostfix(const QString &word) const;

    Object newObject() override;
    // The last row of the content, or null.
    Object getLastCategory() const;

    // Removes the selected rows without asking.
    Q_INVOKABLE void remove(const Foundation::ActionSender &) { removeSelectedObjects(); }
};
