#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QWidget>

namespace tervale {

class TabularLabel;
class TextLabel;

/// What drives the fans now, and one sentence about it.
class ModeHeading final : public QWidget {
    Q_OBJECT

  public:
    /// `model` outlives the heading.
    explicit ModeHeading(Model& model, QWidget* parent = nullptr);

  private:
    void update();

    Model& model;
    TabularLabel* title;
    TextLabel* explanation;
};

} // namespace tervale
