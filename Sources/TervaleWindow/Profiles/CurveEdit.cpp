#include "TervaleWindow/Profiles/CurveEdit.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <algorithm>
#include <utility>

namespace tervale {

namespace {

CurvePoint& pointAt(Curve& curve, std::size_t index) {
    precondition(index < curve.points.size(), "a curve has no point of that index");
    return curve.points[index];
}

} // namespace

bool perform(const CurveEdit& edit, Curve& curve) {
    return std::visit(overloaded{
                          [&curve](const curveEdit::Add& add) {
                              curve.points.push_back(add.point);
                              setX(curve, curve.points.size() - 1, add.point.x);
                              return true;
                          },
                          [&curve](const curveEdit::Move& move) {
                              CurvePoint& point = pointAt(curve, move.index);
                              return std::exchange(point, move.to) != move.to;
                          },
                          [&curve](const curveEdit::Remove& remove) {
                              pointAt(curve, remove.index);
                              curve.points.erase(curve.points.begin() +
                                                 static_cast<std::ptrdiff_t>(remove.index));
                              return true;
                          },
                      },
                      edit);
}

void setX(Curve& curve, std::size_t index, double x) {
    pointAt(curve, index).x = x;
    std::stable_sort(
        curve.points.begin(), curve.points.end(),
        [](const CurvePoint& first, const CurvePoint& second) { return first.x < second.x; });
}

} // namespace tervale
