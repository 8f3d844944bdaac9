#include "TervaleWindow/Overview/ControlsPanel.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Appearance/MenuTitle.h"
#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolView.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Model/DisplayName.h"
#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Overview/ModeHeading.h"
#include "TervaleWindow/Overview/TimerLabel.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace tervale {

namespace {

QHBoxLayout* rowIn(QWidget& widget) {
    auto* row = new QHBoxLayout(&widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    return row;
}

} // namespace

ControlsPanel::ControlsPanel(Model& modelShown, Bridge& bridgeUsed, QWidget* parent)
    : Card(parent),
      model(modelShown),
      bridge(bridgeUsed) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(13);
    column->addWidget(new ModeHeading(model));
    column->addLayout(makeModeRow());
    column->addLayout(makeSliderRow());
    column->addWidget(makeProfileRow());
    column->addWidget(makeTimerRow());

    connect(&model, &Model::selectionChanged, this, &ControlsPanel::updateModes);
    connect(&model, &Model::timerActionChanged, this, &ControlsPanel::updateModes);
    connect(&model, &Model::selectionChanged, this, &ControlsPanel::updateSlider);
    connect(&model, &Model::selectionChanged, this, &ControlsPanel::updateChosenProfile);
    connect(&model, &Model::profilesChanged, this, &ControlsPanel::updateProfiles);
    connect(&model, &Model::profilesChanged, this, &ControlsPanel::updateTimerMenu);
    for (const auto change : {&Model::selectionChanged, &Model::timerActionChanged,
                              &Model::timerEndsChanged, &Model::profilesChanged})
        connect(&model, change, this, &ControlsPanel::updateTimer);
    updateModes();
    updateSlider();
    updateProfiles();
    updateTimer();
    updateTimerMenu();
}

QLayout* ControlsPanel::makeModeRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    const auto add = [&](const QString& title, const Action& action) {
        auto* button = new ModeButton(title);
        connect(button, &QPushButton::clicked, this, [this, action] { select(action); });
        row->addWidget(button);
        modes.emplace_back(button, action);
    };
    add(QStringLiteral("Automatic"), action::Automatic{});
    for (const SpeedPreset& preset : speedPresets)
        add(QString::fromLatin1(preset.title), action::Fixed{preset.fraction});
    row->addStretch(1);
    return row;
}

QLayout* ControlsPanel::makeSliderRow() {
    slider = new FractionSlider;
    slider->setAccessibleName(QStringLiteral("Fan speed"));
    sliderFigure = new TabularLabel(roundedFont(15, QFont::Medium));
    // The slider is read with it.
    markAsDecoration(*sliderFigure);
    sliderFigure->setToolTip(slider->accessibleName());
    sliderFigure->setFixedWidth(46);
    sliderFigure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(slider, &FractionSlider::fractionChanged, this,
            [this](double fraction) { sliderFigure->setText(percent(fraction)); });
    connect(slider, &FractionSlider::editingChanged, this, &ControlsPanel::setEditingSlider);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    // The slider's knob and its ring reach beyond the line of the row.
    row->setContentsMargins(0, -4, 0, -4);
    row->addWidget(new SymbolView(Symbol::fanSlash, 18, TextColor::secondary));
    row->addWidget(slider, 1);
    row->addWidget(new SymbolView(Symbol::fanFill, 18, TextColor::secondary));
    row->addWidget(sliderFigure);
    return row;
}

QWidget* ControlsPanel::makeProfileRow() {
    profileRow = new QWidget;
    profilePicker = new PopUpButton;
    profilePicker->setAccessibleName(QStringLiteral("Profile"));
    connect(profilePicker, &PopUpButton::activated, this, &ControlsPanel::selectProfile);
    auto* title = new TextLabel(QStringLiteral("Profile"));
    title->setBuddy(profilePicker);
    auto* row = rowIn(*profileRow);
    row->addWidget(title);
    row->addWidget(profilePicker);
    row->addStretch(1);
    return profileRow;
}

QWidget* ControlsPanel::makeTimerRow() {
    timerMenu = new MenuButton(QStringLiteral("Timer"), new QMenu);
    timerLabel = new TimerLabel;
    cancelButton = new QPushButton(QStringLiteral("Cancel"));
    connect(cancelButton, &QPushButton::clicked, this,
            [this] { bridge.send(command::CancelTimer{}); });
    timerRunning = new QWidget;
    auto* running = rowIn(*timerRunning);
    running->addWidget(timerLabel);
    running->addWidget(cancelButton);
    running->addStretch(1);
    auto* timerRow = new QWidget;
    auto* row = rowIn(*timerRow);
    row->setSpacing(0);
    row->addWidget(timerRunning, 1);
    row->addWidget(timerMenu, 0, Qt::AlignLeft);
    return timerRow;
}

void ControlsPanel::select(const Action& action) {
    bridge.send(command::Select{action});
}

void ControlsPanel::selectProfile(int entry) {
    if (entry > 0)
        select(action::Profile{model.profiles()[static_cast<std::size_t>(entry - 1)].id});
    // What the user picked shows once the agent confirms it.
    updateChosenProfile();
}

void ControlsPanel::setEditingSlider(bool editing) {
    editingSlider = editing;
    // A gesture that ends because the window closes is no wish; nothing is sent on the way out.
    if (!editing && window()->isVisible())
        select(fixedAt(slider->fraction()));
}

void ControlsPanel::updateModes() {
    for (const auto& [button, action] : modes) {
        const bool selected = isSelected(model, action);
        button->setSelected(selected ? Selection::selected : Selection::unselected);
        const QString meaning = selected ? tr("Chosen now") : QString();
        if (button->accessibleDescription() == meaning)
            continue;
        button->setAccessibleDescription(meaning);
        button->setToolTip(meaning);
    }
}

void ControlsPanel::updateSlider() {
    const auto* fixed = std::get_if<action::Fixed>(&model.selection());
    if (fixed && !editingSlider)
        slider->setFraction(fixed->speed);
    sliderFigure->setText(percent(slider->fraction()));
}

void ControlsPanel::updateProfiles() {
    profilePicker->clear();
    profilePicker->addItem(QStringLiteral("No profile"));
    for (const Profile& profile : model.profiles())
        profilePicker->addItem(displayName(profile));
    profileRow->setVisible(!model.profiles().empty());
    updateChosenProfile();
}

void ControlsPanel::updateChosenProfile() {
    const auto* chosen = std::get_if<action::Profile>(&model.selection());
    const Profile* profile = chosen ? findProfile(model.profiles(), chosen->id) : nullptr;
    const auto entry = profile ? profile - model.profiles().data() + 1 : 0;
    profilePicker->setCurrentIndex(static_cast<int>(entry));
}

void ControlsPanel::updateTimer() {
    const std::optional<TimerLine> line = timerLine(model);
    const bool running = line.has_value();
    if (line)
        timerLabel->show(*line);
    // The one that comes is there before the one that goes, to take the focus over.
    (running ? timerRunning : static_cast<QWidget*>(timerMenu))->show();
    if (running)
        handFocusOn(*timerMenu, *cancelButton);
    else
        handFocusOn(*cancelButton, *timerMenu);
    (running ? static_cast<QWidget*>(timerMenu) : timerRunning)->hide();
}

void ControlsPanel::updateTimerMenu() {
    QMenu& menu = *timerMenu->menu();
    menu.clear();
    // The menus of the entries stay behind, and one of them may be running.
    for (QMenu* old : menu.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        old->hide();
        old->deleteLater();
    }
    for (const TimerTarget& target : timerTargets(model)) {
        QMenu* durations = menu.addMenu(menuTitle(target.title));
        for (const TimerDuration& duration : timerDurations) {
            const command::StartTimer start{target.action, duration.seconds};
            durations->addAction(QString::fromLatin1(duration.title), this,
                                 [this, start] { bridge.send(start); });
        }
    }
}

} // namespace tervale
