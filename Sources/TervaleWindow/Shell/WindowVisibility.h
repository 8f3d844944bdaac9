#pragma once

#include "TervaleWindow/Model/Visibility.h"

#include <QPointer>
#include <QWidget>

namespace tervale {

/// The visibility of the application's window as the window system reports it. Until the window is
/// there the application counts as visible, so that what it shows first is already filled.
class WindowVisibility final : public Visibility {
  public:
    void follow(QWidget& window) { followed = &window; }

    bool visible() const override;

  private:
    QPointer<QWidget> followed;
};

} // namespace tervale
