#include "TervaleWindow/Profiles/TemperatureContent.h"

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/CurveEditor.h"
#include "TervaleWindow/Profiles/FormRow.h"

#include <QVBoxLayout>

#include <algorithm>

namespace tervale {

namespace {

constexpr int hottestSegment = 0;
constexpr int averageSegment = 1;

QString groupTitle(SensorGroup group) {
    const std::string_view title = group.title();
    return QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
}

QString averageTitle(SensorGroup group) {
    return TemperatureInput::averaged(group) ? QStringLiteral("Core average")
                                             : QStringLiteral("Average");
}

} // namespace

TemperatureContent::TemperatureContent(Model& model, DraftOwner& draft, QWidget* parent)
    : ProfileContent(draft, parent),
      model(model),
      follow(new PopUpButton(this)),
      reading(new SegmentedPicker({tr("Hottest sensor"), averageTitle(SensorGroup::cpu)}, this)),
      editor(new CurveEditor({20, 110}, QStringLiteral("°C"), curveInsets)) {
    for (const SensorGroup group : SensorGroup::allCases)
        follow->addItem(groupTitle(group));
    auto* card = new Card(this);
    auto* inside = new QVBoxLayout(card);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(editor);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(card);

    connect(follow, &PopUpButton::activated, this, [this](int entry) {
        const SensorGroup group = SensorGroup::allCases[static_cast<std::size_t>(entry)];
        perform(profileEdit::FollowInput{{group, input.average}});
    });
    connect(reading, &SegmentedPicker::chosen, this, [this](int segment) {
        perform(profileEdit::FollowInput{{input.group, segment == averageSegment}});
    });
    connect(&editor->canvas(), &CurveCanvas::edited, this, &TemperatureContent::perform);
    connect(&editor->canvas(), &CurveCanvas::settled, this, &TemperatureContent::settle);
    connect(&model, &Model::summaryChanged, this, &TemperatureContent::showMarker);
    display();
}

void TemperatureContent::addRows(QGridLayout& form) {
    addFormRow(form, tr("Follow"), follow, RowWidth::natural);
    addFormRow(form, tr("Reading"), reading, RowWidth::natural);
}

void TemperatureContent::display() {
    showInput();
    showCurve();
}

void TemperatureContent::followEdit(const ProfileEdit& edit) {
    if (std::holds_alternative<profileEdit::FollowInput>(edit))
        showInput();
    else if (std::holds_alternative<CurveEdit>(edit))
        showCurve();
}

void TemperatureContent::showInput() {
    input = shown<kind::Temperature>().input;
    const auto cases = SensorGroup::allCases;
    const auto found = std::find(cases.begin(), cases.end(), input.group);
    follow->setCurrentIndex(static_cast<int>(found - cases.begin()));
    reading->setTitle(averageSegment, averageTitle(input.group));
    reading->setSelected(input.average ? averageSegment : hottestSegment);
    showMarker();
}

void TemperatureContent::showCurve() {
    editor->canvas().setCurve(shown<kind::Temperature>().curve);
}

void TemperatureContent::showMarker() {
    editor->canvas().setMarker(model.summary().at(input));
}

} // namespace tervale
