#pragma once

#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Profiles/ScheduleRow.h"
#include "TervaleWindow/Support/Choosing.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace tervale {

inline const std::vector<Profile> targets{
    loadProfile(1, "Quiet"),
    loadProfile(2, ""),
    {idOf(3), "Night", kind::Schedule{ProfileDefaults::schedule()}}};

/// The editor of a schedule's time windows, and an owner that performs whatever it asks for.
class ScheduleEditorFixture : public testing::Test {
  protected:
    ScheduleEditorFixture() {
        editor.setLocale(QLocale(QLocale::German));
        editor.resize(500, 300);
        editor.show();
        editor.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
        QObject::connect(&editor, &ScheduleEditor::edited, &editor, [this](const WindowEdit& edit) {
            std::vector<Window> windows = editor.windows();
            perform(edit, windows);
            editor.display(windows, targets);
            ++reports;
        });
    }

    void show(const std::vector<Window>& windows) { editor.display(windows, targets); }
    QList<ScheduleRow*> rows() const { return editor.findChildren<ScheduleRow*>(); }
    /// `name` is how the control's begins; it goes on with the window's number.
    template <class Control>
    Control* control(int row, const QString& name = {}) const {
        for (Control* found : rows()[row]->findChildren<Control*>()) {
            if (found->accessibleName().startsWith(name))
                return found;
        }
        return nullptr;
    }
    PopUpButton* picker(int row) const { return control<PopUpButton>(row); }
    void choose(int row, int entry) const { tervale::choose(*picker(row), entry); }
    /// Types into the hour of a window's start and leaves it at that.
    void typeHour(int row, const QString& digits) const {
        auto* field = control<TimeField>(row, "From");
        field->setFocus();
        field->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(field, digits);
    }
    /// As assistive technology does, which leaves the focus where it is.
    void pressRemove(int row) const {
        const auto before = editor.windows().size();
        QAccessible::queryAccessibleInterface(control<SymbolButton>(row))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(QTest::qWaitFor([&] { return editor.windows().size() < before; }));
    }
    QPushButton* addButton() const {
        for (auto* button : editor.findChildren<QPushButton*>()) {
            if (button->text() == "Add Window")
                return button;
        }
        return nullptr;
    }
    QStringList entries(int row) const {
        QStringList result;
        for (int entry = 0; entry < picker(row)->count(); ++entry)
            result.push_back(picker(row)->itemText(entry));
        return result;
    }

    ScheduleEditor editor;
    int reports = 0;
};

} // namespace tervale
