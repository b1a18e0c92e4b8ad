#pragma once

#include <QList>
#include <QString>

#include <algorithm>
#include <functional>

namespace Foundation
{

struct AlertButton
{
    // What the button does. Code must use the role and never the title, because titles are translated.
    enum Role {
        Confirm,
        Cancel,  // the action does not take place
        Discard, // the action takes place and changes are lost; the desktop may separate this button
    };

    QString title;
    Role role = Confirm;

    bool operator==(const AlertButton &) const = default;
};

// A question or message to the user, without its appearance. The answer is the code of the position of the
// pressed button. Return presses the first button.
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

    // The answer when the user presses Escape or closes the alert: the code of the first button with the role
    // Cancel, or of the last button if there is none.
    int closingReturn() const
    {
        const auto cancel = std::ranges::find(buttons, AlertButton::Cancel, &AlertButton::role);
        const qsizetype last = std::max<qsizetype>(buttons.size(), 1) - 1;
        return FirstButtonReturn + int(std::min(cancel - buttons.begin(), last));
    }
};

using AlertAnswer = std::function<void(int returnCode)>;

} // namespace Foundation
