#pragma once

#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <memory>
#include <vector>

namespace tervale {

/// The pane on a model with a fake controller and a test in the place of the agent, what it shows,
/// and what a person does with it.
class ProfilesFixture : public ModelFixture {
  protected:
    /// Shows the pane anew; makes the model if there is none yet.
    void open();
    /// The same, once the agent has published these profiles.
    void openWith(const std::vector<Profile>& profiles);
    /// The agent publishes these profiles.
    void say(const std::vector<Profile>& profiles);

    template <class Widget>
    Widget* find() const {
        return view->findChild<Widget*>();
    }
    /// The button of this title or accessible name; null if there is none.
    template <class Button = QPushButton>
    Button* button(const QString& name) const {
        for (Button* found : view->findChildren<Button*>()) {
            if (found->text() == name || found->accessibleName() == name)
                return found;
        }
        return nullptr;
    }
    QListView* list() const { return find<QListView>(); }
    /// What shows the selected profile; null if none is selected.
    QWidget* editor() const;
    QLineEdit* nameField() const;
    CurveCanvas* canvas() const;
    /// The place of a value on the canvas of a temperature curve.
    QPoint placeOf(const CurvePoint& value) const;

    /// The rows of the list, with "!" before those that are marked.
    QStringList names() const;
    QString selectedName() const;
    /// The texts of all labels that are visible.
    QStringList labels() const;

    void clickRow(int row) const;
    void click(const QString& name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    /// Chooses an entry of the menu "Add profile".
    void add(const QString& entry) const;
    /// Types the name of the selected profile over the one that it has.
    void typeName(const QString& text) const;
    /// Types into the hour of the first window's start and leaves it at that.
    void typeHour(const QString& digits) const;

    std::unique_ptr<ProfilesView> view;
};

} // namespace tervale
