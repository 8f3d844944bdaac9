#pragma once

#include <vector>

namespace tervale {

/// Makes one gesture out of everything that moves a slider at a time: a gesture has one source,
/// and whoever begins another one ends it. A pointer that holds the knob takes in whatever the keys
/// do meanwhile.
class SliderGesture {
  public:
    enum class Source { pointer, keyboard };
    enum class Report { began, ended };
    /// What is to be told to the outside, in order.
    using Reports = std::vector<Report>;

    Reports begin(Source source);
    /// Ends the gesture if it is this source's.
    Reports end(Source source);
    Reports endAny();
    bool isActive() const;
    bool isHeldBy(Source source) const;

  private:
    enum class Holder { nobody, pointer, keyboard };
    static Holder holder(Source source);

    Holder current = Holder::nobody;
};

} // namespace tervale
