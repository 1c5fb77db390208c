#pragma once

// Every function of the open interface, and arguments with which it succeeds.

#include "open/BadArguments.h"

#include <functional>
#include <string>
#include <vector>

struct Function {
    std::string                                            Name;
    std::vector<std::string>                               Arguments;    // kind, or kind=value
    std::function<VostelStatus(const std::vector<Value>&)> Call;
};

// But those that give text and take no pointer.
std::vector<Function> AllFunctions();

// Good ones; what the function needs is done before.
std::vector<Value> GoodValues(BadInputWorld& world, const Function& function);
