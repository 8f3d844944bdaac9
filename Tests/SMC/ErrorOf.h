#pragma once

#include "SMC/SMC.h"

#include <string>

namespace tervale::test {

/// The description of the `SMCError` that `operation` throws, or "no error".
template <typename Operation>
std::string errorOf(Operation operation) {
    try {
        operation();
        return "no error";
    } catch (const SMCError& error) {
        return error.description;
    }
}

} // namespace tervale::test
