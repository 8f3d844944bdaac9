#include "TervaleWindow/Controls/SliderGesture.h"

#include "Base/Precondition.h"

namespace tervale {

SliderGesture::Holder SliderGesture::holder(Source source) {
    switch (source) {
    case Source::pointer:
        return Holder::pointer;
    case Source::keyboard:
        return Holder::keyboard;
    }
    precondition(false, "a gesture has a source");
    return Holder::nobody;
}

SliderGesture::Reports SliderGesture::begin(Source source) {
    if (current == holder(source) || current == Holder::pointer)
        return {};
    Reports reports = endAny();
    current = holder(source);
    reports.push_back(Report::began);
    return reports;
}

SliderGesture::Reports SliderGesture::end(Source source) {
    return isHeldBy(source) ? endAny() : Reports{};
}

SliderGesture::Reports SliderGesture::endAny() {
    if (!isActive())
        return {};
    current = Holder::nobody;
    return {Report::ended};
}

bool SliderGesture::isActive() const {
    return current != Holder::nobody;
}

bool SliderGesture::isHeldBy(Source source) const {
    return current == holder(source);
}

} // namespace tervale
