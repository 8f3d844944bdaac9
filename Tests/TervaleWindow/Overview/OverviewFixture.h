#pragma once

#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Overview/OverviewView.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QLabel>
#include <QTest>

#include <memory>
#include <vector>

namespace tervale {

constexpr UUID quietId{{7}};
constexpr UUID loudId{{8}};

/// "Quiet" and "Loud & clear".
std::vector<Profile> twoProfiles();

/// The pane on a Mac with two fans and three sensors, with a test in the place of the agent.
class OverviewFixture : public ModelFixture {
  protected:
    void SetUp() override;

    /// Shows the pane anew; makes the model if there is none yet.
    void show();

    /// What is visible and has this text or accessible name; null if there is none.
    template <class Widget>
    Widget* named(const QString& text) const {
        for (auto* widget : view->findChildren<Widget*>()) {
            if (widget->isVisibleTo(view.get()) &&
                (widget->accessibleName() == text || widget->property("text").toString() == text))
                return widget;
        }
        return nullptr;
    }
    bool shows(const QString& text) const { return named<QLabel>(text) != nullptr; }
    ModeButton& mode(const QString& title) const { return *named<ModeButton>(title); }
    FractionSlider& slider() const { return *view->findChild<FractionSlider*>(); }
    PopUpButton* picker() const { return named<PopUpButton>("Profile"); }
    MenuButton* timerMenu() const { return named<MenuButton>("Timer"); }
    /// The first line of the pane: what runs.
    QString heading() const;
    /// The line on a running timer, as the model says it; empty while none runs.
    QString timerText() const;

    std::unique_ptr<OverviewView> view;
};

} // namespace tervale
