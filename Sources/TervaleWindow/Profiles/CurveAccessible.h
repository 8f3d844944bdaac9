#pragma once

namespace tervale {

class CurveCanvas;

/// Lets assistive technology read the chosen point of every curve canvas as its value.
void installCurveAccessibility();
/// Tells assistive technology that the chosen point is another one or elsewhere.
void tellCurvePosition(CurveCanvas& canvas);

} // namespace tervale
