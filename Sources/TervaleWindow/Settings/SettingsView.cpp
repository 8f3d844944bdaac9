#include "TervaleWindow/Settings/SettingsView.h"

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Settings/VersionText.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace tervale {

namespace {

constexpr int versionRowHeight = 44;
constexpr int updateRowHeight = 46;
constexpr int cardSides = 18;

QWidget* makeVersionRow(const QString& version) {
    auto* row = new QWidget;
    row->setFixedHeight(versionRowHeight - 1);
    auto* value = new TabularLabel(TextStyle::body().font, TextColor::secondary);
    value->setText(version);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* layout = tightLayout<QHBoxLayout>(row);
    layout->setContentsMargins(SymbolButton::overhang());
    layout->setSpacing(12);
    layout->addWidget(new TextLabel(QStringLiteral("Version")));
    layout->addWidget(value, 1);
    return row;
}

TextLabel* makeWrappingLabel(const QString& text, const TextStyle& style, TextColor color) {
    auto* label = new TextLabel(text, style, color);
    label->setOverflow(Overflow::wrap);
    return label;
}

QWidget* makeSafetySection() {
    auto* heading = new TextLabel(QStringLiteral("Safety"), TextStyle::section());
    auto* card = new Card;
    tightLayout<QVBoxLayout>(card)->addWidget(makeWrappingLabel(
        QStringLiteral("If any CPU or GPU sensor reaches 95 °C, the fan goes to Max whatever the "
                       "profile says, until every sensor is back below 85 °C. Quitting Tervale "
                       "hands the fan back to macOS."),
        TextStyle::body(), TextColor::label));
    auto* section = new QWidget;
    auto* column = tightLayout<QVBoxLayout>(section);
    auto* inset = new QHBoxLayout;
    inset->setContentsMargins(4, 4, 4, 8);
    inset->addWidget(heading);
    column->addLayout(inset);
    column->addWidget(card);
    return section;
}

} // namespace

SettingsView::SettingsView(Model& modelShown, Bridge& bridgeUsed,
                           const ApplicationMetadata& metadata, QWidget* parent)
    : PaneFrame(QStringLiteral("Settings"), parent),
      model(modelShown),
      bridge(bridgeUsed) {
    addPanel(makeLaunchPanel());
    addPanel(makeAboutPanel(versionText(metadata)));
    addPanel(makeSafetySection());
}

void SettingsView::offerHelp(const QList<QAction*>& entries) {
    if (help)
        return;
    help = new SymbolButton(Symbol::questionmarkCircle, tr("Help"));
    auto* menu = new QMenu(help);
    menu->addActions(entries);
    help->setMenu(menu);
    lastRow->addWidget(help, 0, Qt::AlignVCenter);
    // A layout would show it from the event loop alone.
    help->show();
}

QWidget* SettingsView::makeLaunchPanel() {
    auto* title = new TextLabel(QStringLiteral("Launch at login"));
    auto* toggle = new ToggleSwitch(title->text());
    auto* caption = makeWrappingLabel(
        QStringLiteral(
            "Starts Tervale in the menu bar when you log in, with the last profile running."),
        TextStyle::caption(), TextColor::secondary);
    // The switch has it for a name.
    title->setBuddy(toggle);
    toggle->setAccessibleDescription(caption->text());

    const auto update = [this, title, toggle] {
        toggle->setChecked(model.launchAtLogin());
        toggle->setEnabled(model.connected());
        title->setEnabled(model.connected());
    };
    connect(&model, &Model::launchAtLoginChanged, toggle, update);
    connect(&model, &Model::connectedChanged, toggle, update);
    connect(toggle, &ToggleSwitch::requested, this,
            [this](bool on) { bridge.send(command::SetLaunchAtLogin{on}); });
    update();

    auto* card = new Card;
    auto* column = tightLayout<QVBoxLayout>(card);
    auto* row = new QHBoxLayout;
    row->addWidget(title);
    row->addStretch(1);
    row->addWidget(toggle);
    column->addLayout(row);
    column->addSpacing(6);
    column->addWidget(caption);
    return card;
}

QWidget* SettingsView::makeAboutPanel(const QString& version) {
    auto* button = new QPushButton(QStringLiteral("Check for Updates…"));
    connect(button, &QPushButton::clicked, this,
            [this] { bridge.send(command::CheckForUpdates{}); });
    auto* updateRow = new QWidget;
    updateRow->setFixedHeight(updateRowHeight);
    lastRow = tightLayout<QHBoxLayout>(updateRow);
    lastRow->addWidget(button, 0, Qt::AlignLeft | Qt::AlignVCenter);

    auto* card = new Card;
    card->setPadding(QMargins(cardSides, 0, cardSides, 0) - SymbolButton::overhang());
    auto* divider = new Divider;
    divider->setContentsMargins(SymbolButton::overhang());
    auto* column = tightLayout<QVBoxLayout>(card);
    column->addWidget(makeVersionRow(version));
    column->addWidget(divider);
    column->addWidget(updateRow);
    return card;
}

} // namespace tervale
