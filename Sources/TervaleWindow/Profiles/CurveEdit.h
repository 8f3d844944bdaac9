#pragma once

#include "Profiles/Profile.h"

#include <cstddef>
#include <variant>

namespace tervale {

/// What is to be done to a curve. An index beyond the points is a programming error.
namespace curveEdit {
/// Adds a point, in order of x.
struct Add {
    CurvePoint point;
    bool operator==(const Add&) const = default;
};
/// Moves a point; its index stays.
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

/// True if the curve changed.
bool perform(const CurveEdit& edit, Curve& curve);

/// Sets one point's x and brings the points into order, those with the same x as they were.
void setX(Curve& curve, std::size_t index, double x);

} // namespace tervale
