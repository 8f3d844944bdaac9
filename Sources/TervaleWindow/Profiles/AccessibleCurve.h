#pragma once

#include "Profiles/Profile.h"

#include <vector>

namespace tervale {

class CurveCanvas;

/// Lets assistive technology reach the points of every curve canvas: a group for each, whose name
/// tells its place, with its temperature or load and its speed as values within. Before the canvas
/// is named; more calls do nothing.
void registerAccessibleCurve();
/// Tells assistive technology which points there are, or which of them moved, compared with the
/// points that it was told before.
void tellCurvePoints(CurveCanvas& canvas, const std::vector<CurvePoint>& before);
/// Tells it that the focus is at the chosen point, if there is one and the canvas has the focus.
void tellChosenPoint(CurveCanvas& canvas);

} // namespace tervale
