#pragma once

namespace tervale {

/// Joins one function per alternative into a visitor of a variant.
template <class... Functions>
struct overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
overloaded(Functions...) -> overloaded<Functions...>;

} // namespace tervale
