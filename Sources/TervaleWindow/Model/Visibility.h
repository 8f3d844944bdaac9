#pragma once

namespace tervale {

/// Tells whether any part of any of the application's windows is on screen.
class Visibility {
  public:
    virtual ~Visibility() = default;

    virtual bool visible() const = 0;
};

} // namespace tervale
