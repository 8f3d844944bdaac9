#include "TervaleWindow/Overview/ModeHeading.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Model/DisplayName.h"
#include "TervaleWindow/Overview/FanChoices.h"

#include <QVBoxLayout>

namespace tervale {

ModeHeading::ModeHeading(Model& modelShown, QWidget* parent)
    : QWidget(parent),
      model(modelShown),
      title(new TabularLabel(roundedFont(28, QFont::Bold))),
      explanation(new TextLabel({}, TextStyle::callout(), TextColor::secondary)) {
    title->setLineHeight(34);
    title->setOverflow(Overflow::elide);
    explanation->setOverflow(Overflow::wrap);
    auto* column = tightLayout<QVBoxLayout>(this);
    column->addWidget(title);
    column->addWidget(explanation);
    for (const auto change : {&Model::selectionChanged, &Model::timerActionChanged,
                              &Model::statusChanged, &Model::profilesChanged})
        connect(&model, change, this, &ModeHeading::update);
    update();
}

void ModeHeading::update() {
    title->setText(displayName(running(model), model.profiles()));
    explanation->setText(subtitle(model));
}

} // namespace tervale
