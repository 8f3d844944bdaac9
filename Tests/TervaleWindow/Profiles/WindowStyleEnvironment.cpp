#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Style/WindowStyle.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace tervale {
namespace {

/// Sizes and colours as the application has them.
class WindowStyleEnvironment final : public testing::Environment {
  public:
    void SetUp() override {
        QApplication::setStyle(new WindowStyle);
        QApplication::setPalette(lightPalette());
    }
};

[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new WindowStyleEnvironment);

} // namespace
} // namespace tervale
