#pragma once

#include "platform/Actions.h"

// A responder of the window layer that says itself whether its commands are enabled. All others in the chain
// are parts of the document, which answers for them.
class MenuItemValidator
{
public:
    virtual ~MenuItemValidator() = default;
    virtual bool validateMenuItem(Foundation::MenuItem &item) = 0;
};
