#pragma once

#include "TervaleWindow/Model/Visibility.h"

#include <QPointer>
#include <QWidget>

namespace tervale {

/// The visibility of the application's windows as the window system reports it. Where it tells that
/// a window is covered, as macOS does, such a window counts as not visible. Until the followed
/// window is there the application counts as visible, so that what it shows first is already
/// filled.
class WindowVisibility final : public Visibility {
  public:
    void follow(QWidget& window) { followed = &window; }

    bool visible() const override;

  private:
    QPointer<QWidget> followed;
};

} // namespace tervale
