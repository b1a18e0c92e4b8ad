#pragma once

#include "platform/Actions.h"

// A responder of the window layer that decides whether its own commands are enabled. For all other
// responders, the document decides.
class MenuItemValidator
{
public:
    virtual ~MenuItemValidator() = default;
    virtual bool validateMenuItem(Foundation::MenuItem &item) = 0;
};
