#pragma once

#include <QList>
#include <QString>

#include <algorithm>
#include <functional>

namespace Foundation
{

struct AlertButton
{
    // Titles are translated, so that only the role says what a button does.
    enum Role {
        Confirm,
        Cancel,  // the action does not take place
        Discard, // the action takes place and changes are lost, which the desktop may set apart
    };

    QString title;
    Role role = Confirm;

    bool operator==(const AlertButton &) const = default;
};

// A question or message to the user: what it says, never how it looks. The buttons stand in the order given,
// and the answer is the code of the button's place. The first one answers the Return key.
struct Alert
{
    enum class Style { Warning = 0, Informational = 1 };

    static constexpr int FirstButtonReturn = 1000;
    static constexpr int SecondButtonReturn = 1001;
    static constexpr int ThirdButtonReturn = 1002;

    QString message;
    QString informativeText;
    QList<AlertButton> buttons;
    Style style = Style::Warning;
    // True for an alert that may be shown while its document is locked, because it shows nothing of the
    // content. Any other alert of a locked document is not shown and is answered with a code that no button
    // has.
    bool mayStandOverLock = false;

    // The code of the button that answers the Escape key and the closing of the alert: the first of role
    // Cancel, without one the last button.
    int closingReturn() const
    {
        const auto cancel = std::ranges::find(buttons, AlertButton::Cancel, &AlertButton::role);
        const qsizetype last = std::max<qsizetype>(buttons.size(), 1) - 1;
        return FirstButtonReturn + int(std::min(cancel - buttons.begin(), last));
    }
};

using AlertAnswer = std::function<void(int returnCode)>;

} // namespace Foundation
