#pragma once

#include "lists/ArrayController.h"
#include "platform/Actions.h"

// List of named rows, whatever they are: finds names that are still free.
class VLCategoryArrayController : public Foundation::ArrayController
{
    Q_OBJECT

public:
    using ArrayController::ArrayController;

    // True if no row shown has exactly that text under the key.
    bool testForUnusedString(const QString &text, const Foundation::Key &forKey) const;
    // The word, or the word with the first free number from 1 up behind a blank. After 31999 tries the last
    // one is given, free or not.
    QString unusedCategoryNameWithPostfix(const QString &word) const;

    Object newObject() override;
    // The last row of the content, or null.
    Object getLastCategory() const;

    // Removes the selected rows without a question.
    Q_INVOKABLE void remove(const Foundation::ActionSender &) { removeSelectedObjects(); }
};
