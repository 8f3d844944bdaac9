#pragma once

#include <type_traits>

namespace tervale {

// What the header of a type needs to declare how the type is written and read:
//
//     void write(JSONWriter& json, const Curve& curve);
//     Curve read(const JSONReader& json, Type<Curve>);

class JSONReader;
class JSONWriter;

/// Picks the `read` of a type.
template <class Value>
using Type = std::type_identity<Value>;

} // namespace tervale
