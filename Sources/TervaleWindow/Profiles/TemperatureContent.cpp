#include "TervaleWindow/Profiles/TemperatureContent.h"

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Profiles/CurveEditor.h"
#include "TervaleWindow/Profiles/FormRow.h"

#include <QVBoxLayout>

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

TemperatureContent::TemperatureContent(Model& model, QWidget* parent)
    : ProfileContent(parent),
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
        shown.input.group = SensorGroup::allCases[static_cast<std::size_t>(entry)];
        report();
    });
    connect(reading, &SegmentedPicker::chosen, this, [this](int segment) {
        shown.input.average = segment == averageSegment;
        report();
    });
    connect(editor, &CurveEditor::curveChanged, this, [this](const Curve& curve) {
        shown.curve = curve;
        report();
    });
    connect(&model, &Model::summaryChanged, this, &TemperatureContent::showMarker);
}

void TemperatureContent::addRows(QGridLayout& form) {
    addFormRow(form, tr("Follow"), follow, RowWidth::natural);
    addFormRow(form, tr("Reading"), reading, RowWidth::natural);
}

void TemperatureContent::display(const Profile& profile, std::span<const Profile>) {
    shown = std::get<kind::Temperature>(profile.kind);
    const auto cases = SensorGroup::allCases;
    const auto found = std::find(cases.begin(), cases.end(), shown.input.group);
    follow->setCurrentIndex(static_cast<int>(found - cases.begin()));
    reading->setTitle(averageSegment, averageTitle(shown.input.group));
    reading->setSelected(shown.input.average ? averageSegment : hottestSegment);
    editor->setCurve(shown.curve);
    showMarker();
}

void TemperatureContent::showMarker() {
    editor->setMarker(model.summary().at(shown.input));
}

void TemperatureContent::report() {
    emit kindChanged(shown);
}

} // namespace tervale
