#include "TervaleWindow/Profiles/ProfilesFixture.h"

#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/ProfilesListModel.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Support/Choosing.h"

#include <QLabel>
#include <QScrollArea>

namespace tervale {

void ProfilesFixture::open() {
    if (!model)
        makeModel();
    view = std::make_unique<ProfilesView>(*model, bridge);
    view->resize(790, 680);
    view->show();
    view->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
    takeCommands();
}

void ProfilesFixture::openWith(const std::vector<Profile>& profiles) {
    makeModel();
    say(profiles);
    open();
}

void ProfilesFixture::say(const std::vector<Profile>& profiles) {
    BridgeState state;
    state.profiles = profiles;
    publish(state);
}

QWidget* ProfilesFixture::editor() const {
    return find<QScrollArea>()->widget();
}

QLineEdit* ProfilesFixture::nameField() const {
    for (QLineEdit* field : editor() ? editor()->findChildren<QLineEdit*>() : QList<QLineEdit*>())
        if (field->accessibleName() == "Name")
            return field;
    return nullptr;
}

CurveCanvas* ProfilesFixture::canvas() const {
    return editor() ? editor()->findChild<CurveCanvas*>() : nullptr;
}

QPoint ProfilesFixture::placeOf(const CurvePoint& value) const {
    const PlotPoint point = CurvePlot{canvas()->plot(), {20, 110}}.position(value);
    return QPointF(point.x, point.y).toPoint();
}

QStringList ProfilesFixture::names() const {
    QStringList result;
    for (const auto& row : find<ProfilesListModel>()->rows())
        result.push_back((row.marked ? "!" : "") + row.name);
    return result;
}

QString ProfilesFixture::selectedName() const {
    const QModelIndexList selected = list()->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : selected.front().data().toString();
}

QStringList ProfilesFixture::labels() const {
    QStringList result;
    for (const QLabel* label : view->findChildren<QLabel*>()) {
        if (label->isVisible())
            result.push_back(label->text());
    }
    return result;
}

void ProfilesFixture::clickRow(int row) const {
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualRect(list()->model()->index(row, 0)).center());
}

void ProfilesFixture::add(const QString& entry) const {
    choose(*button<SymbolButton>("Add profile")->menu(), {entry});
}

void ProfilesFixture::typeName(const QString& text) const {
    nameField()->setFocus();
    nameField()->selectAll();
    if (text.isEmpty())
        QTest::keyClick(nameField(), Qt::Key_Backspace);
    else
        QTest::keyClicks(nameField(), text);
}

void ProfilesFixture::typeHour(const QString& digits) const {
    auto* field = find<ScheduleEditor>()->findChild<TimeField*>();
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(field, digits);
}

} // namespace tervale
