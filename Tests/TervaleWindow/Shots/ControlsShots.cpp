#include "TervaleWindow/Shots/ControlsShots.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Shots/Scenes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QMenu>
#include <QScrollArea>

namespace tervale {

namespace {

using Row = std::initializer_list<QWidget*>;

QHBoxLayout* row(Row widgets) {
    auto* layout = new QHBoxLayout;
    layout->setSpacing(12);
    for (QWidget* widget : widgets) {
        if (widget)
            layout->addWidget(widget);
        else
            layout->addStretch();
    }
    return layout;
}

QVBoxLayout* column(QWidget* parent) {
    auto* layout = new QVBoxLayout(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(13);
    return layout;
}

ModeButton* mode(const QString& title, Selection selection = Selection::unselected) {
    auto* button = new ModeButton(title);
    button->setSelected(selection);
    return button;
}

FractionSlider* slider(double fraction) {
    auto* result = new FractionSlider;
    result->setFraction(fraction);
    return result;
}

PopUpButton* popUp(const QStringList& names) {
    auto* button = new PopUpButton;
    button->addItems(names);
    return button;
}

QMenu* menu() {
    auto* result = new QMenu;
    QMenu* first = result->addMenu("25%");
    first->addAction("15 minutes");
    first->addAction("30 minutes");
    result->addMenu("50%")->addAction("1 hour");
    result->addSeparator();
    result->addAction("Automatic")->setEnabled(false);
    QAction* ticked = result->addAction("Night\tCtrl+N");
    ticked->setCheckable(true);
    ticked->setChecked(true);
    return result;
}

TabularLabel* figure(const QString& text, int size, QFont::Weight weight = QFont::Medium) {
    auto* label = new TabularLabel(roundedFont(size, weight));
    label->setText(text);
    label->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    return label;
}

TimeField* timeField(int minute) {
    auto* field = new TimeField;
    field->setMinuteOfDay(minute);
    return field;
}

QPushButton* button(const QString& title) {
    return new QPushButton(title);
}

QPushButton* prominent(const QString& title) {
    auto* result = new QPushButton(title);
    result->setDefault(true);
    return result;
}

template <typename Widget>
Widget* disabled(Widget* widget) {
    widget->setEnabled(false);
    return widget;
}

ToggleSwitch* toggle(Qt::CheckState state) {
    auto* result = new ToggleSwitch("Launch at login");
    result->setChecked(state == Qt::Checked);
    return result;
}

Card* overviewCard() {
    auto* card = new Card;
    QVBoxLayout* rows = column(card);
    rows->addLayout(row({mode("Automatic"), mode("25%"), mode("50%", Selection::selected),
                         mode("75%"), mode("Max"), disabled(mode("Off")), nullptr}));
    rows->addLayout(
        row({new SymbolView(Symbol::fanSlash, 18, TextColor::secondary), slider(0.5),
             new SymbolView(Symbol::fanFill, 18, TextColor::secondary), figure("50%", 15)}));
    rows->addLayout(row({new TextLabel("Profile"), popUp({"No profile", "Quiet"}), nullptr}));
    rows->addLayout(row({new MenuButton("Timer", menu()), nullptr}));
    rows->addLayout(row({new SymbolLabel(Symbol::timer, "50% until 14:30, then Automatic"),
                         button("Cancel"), nullptr}));
    return card;
}

Card* editorCard() {
    auto* card = new Card;
    QVBoxLayout* rows = column(card);
    rows->addLayout(row({new TextLabel("Name", TextStyle::body(), TextColor::secondary),
                         new QLineEdit("Temperature")}));
    rows->addLayout(
        row({new SegmentedPicker({"Hottest sensor", "Core average"}), nullptr, toggle(Qt::Checked),
             toggle(Qt::Unchecked), disabled(toggle(Qt::Checked))}));
    rows->addWidget(new Divider);
    rows->addLayout(row({timeField(1380), new TextLabel("to"), timeField(420),
                         popUp({"Fixed speed"}), slider(0.4), figure("40%", 13, QFont::Normal),
                         new SymbolButton(Symbol::minusCircle, "Remove")}));
    rows->addWidget(new Divider);
    rows->addLayout(row({button("Add Window"), disabled(button("Revert")), prominent("Save"),
                         disabled(prominent("Save")), disabled(popUp({"CPU"})), nullptr}));
    auto* note = new TextLabel("Times no window covers run Automatic. A window may cross midnight.",
                               TextStyle::caption(), TextColor::secondary);
    rows->addWidget(note);
    rows->addWidget(
        new SymbolLabel(Symbol::exclamationTriangle, "Windows overlap.", TextColor::warning));
    auto* safety = new TextLabel("If any CPU or GPU sensor reaches 95 °C, the fan goes to Max "
                                 "whatever the profile says, until every sensor is back below "
                                 "85 °C. Quitting Tervale hands the fan back to macOS.");
    safety->setOverflow(Overflow::wrap);
    rows->addWidget(safety);
    return card;
}

QWidget* toolRow() {
    auto* holder = new QWidget;
    auto* search = new SearchField("Filter sensors");
    auto* filled = new SearchField("Filter sensors");
    filled->setText("gpu");
    QHBoxLayout* tools = row({new SymbolButton(Symbol::plus, "Add"),
                              new SymbolButton(Symbol::plusSquareOnSquare, "Duplicate"),
                              new SymbolButton(Symbol::minus, "Remove"), nullptr, search, filled});
    tools->setContentsMargins(0, 0, 0, 0);
    holder->setLayout(tools);
    return holder;
}

QWidget* scrollingList() {
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    auto* tall = new QWidget;
    tall->setMinimumHeight(400);
    area->setWidget(tall);
    area->setWidgetResizable(true);
    area->setFixedHeight(80);
    return area;
}

} // namespace

QStringList controlsPictures() {
    return {"controls", "controls-slider-focus", "controls-list", "controls-menu"};
}

void drawControls(const std::function<void(const QString&, const QImage&)>& take) {
    const auto save = [&take](QWidget& widget, const QString& name) {
        take(name, widget.grab().toImage());
    };
    QWidget window;
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(20, 20, 20, 20);
    rows->setSpacing(14 - Card::shadowHeight);
    rows->addWidget(toolRow());
    rows->addWidget(overviewCard());
    rows->addWidget(editorCard());
    rows->addWidget(scrollingList());
    rows->addStretch();
    window.resize(700, 760);
    window.show();
    window.activateWindow();
    settle(window);
    window.findChildren<ModeButton*>().at(1)->setFocus(Qt::TabFocusReason);
    settle(window);
    save(window, "controls");
    window.findChildren<FractionSlider*>().at(0)->setFocus(Qt::TabFocusReason);
    settle(window);
    save(window, "controls-slider-focus");
    auto* popUpButton = window.findChildren<PopUpButton*>().at(0);
    for (int extra = 0; extra < 20; ++extra)
        popUpButton->addItem(QString("A profile with a rather long name, number %1").arg(extra));
    popUpButton->insertSeparator(1);
    popUpButton->showPopup();
    settle(window);
    save(*popUpButton->view()->window(), "controls-list");
    popUpButton->hidePopup();
    auto* timer = window.findChild<MenuButton*>()->menu();
    timer->popup(QPoint(0, 0));
    timer->setActiveAction(timer->actions().first());
    settle(window);
    save(*timer, "controls-menu");
    timer->hide();
}

} // namespace tervale
