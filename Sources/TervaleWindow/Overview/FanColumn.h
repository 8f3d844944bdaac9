#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QWidget>

namespace tervale {

class FanDial;
class TextLabel;

/// One fan: its dial, and under it its number where there are several.
class FanColumn final : public QWidget {
    Q_OBJECT

  public:
    enum class Caption { none, number };

    explicit FanColumn(QWidget* parent = nullptr);

    void show(const Model::DisplayFan& fan, Caption caption);

  private:
    void arrange();

    FanDial* dial;
    TextLabel* number;
};

} // namespace tervale
