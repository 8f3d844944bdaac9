#pragma once

namespace tervale {

/// Hears whether the user's session is over, for as long as the object lives.
class SessionWatch {
  public:
    virtual ~SessionWatch() = default;
    /// Asks now. An answer that it is over comes as if it had been told unasked.
    virtual void look() = 0;
};

} // namespace tervale
