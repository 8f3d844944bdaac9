#pragma once

#include "Profiles/Profile.h"

#include <cstddef>
#include <variant>

namespace tervale {

/// What is to be done to a curve. An index beyond the points is a programming error.
namespace curveEdit {
/// A point more, where its x belongs.
struct Add {
    CurvePoint point;
    bool operator==(const Add&) const = default;
};
/// A point is elsewhere, at the same place in the list.
struct Move {
    std::size_t index = 0;
    CurvePoint to;
    bool operator==(const Move&) const = default;
};
struct Remove {
    std::size_t index = 0;
    bool operator==(const Remove&) const = default;
};
} // namespace curveEdit

using CurveEdit = std::variant<curveEdit::Add, curveEdit::Move, curveEdit::Remove>;

/// Tells whether the curve is another now.
bool perform(const CurveEdit& edit, Curve& curve);

/// Sets one point's x and brings the points into order, those with the same x as they were.
void setX(Curve& curve, std::size_t index, double x);

} // namespace tervale
