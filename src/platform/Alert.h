#pragma once

#include <QStringList>

#include <functional>

namespace Foundation
{

// A question or message to the user: what it says, never how it looks. The buttons stand in the order given,
// and the answer is the code of the button's place.
struct Alert
{
    enum class Style { Warning = 0, Informational = 1 };

    static constexpr int FirstButtonReturn = 1000;
    static constexpr int SecondButtonReturn = 1001;
    static constexpr int ThirdButtonReturn = 1002;

    QString message;
    QString informativeText;
    QStringList buttons;
    Style style = Style::Warning;
    // True for an alert that may be shown while its document is locked, because it shows nothing of the
    // content. Any other alert of a locked document is not shown and is answered with a code that no button
    // has.
    bool mayStandOverLock = false;
};

using AlertAnswer = std::function<void(int returnCode)>;

} // namespace Foundation
