#pragma once

namespace tervale {

class CurveCanvas;

/// Lets assistive technology read the chosen point of every curve canvas as its value. Before the
/// canvas is named; more calls do nothing.
void registerAccessibleCurve();
/// Tells assistive technology that the chosen point is another one or elsewhere.
void tellCurvePosition(CurveCanvas& canvas);

} // namespace tervale
