#pragma once

#include "TervaleWindow/Profiles/ScheduleEditing.h"

#include <QWidget>

#include <span>
#include <vector>

namespace tervale {

class ScheduleRows;

/// Edits the time windows of a schedule: a row for each, a button to add one, and a note. It shows
/// the windows that it was given and asks for what is to be done to them.
class ScheduleEditor final : public QWidget {
    Q_OBJECT

  public:
    explicit ScheduleEditor(QWidget* parent = nullptr);
    ~ScheduleEditor() override;

    const std::vector<Window>& windows() const;
    /// Shows other windows, and the profiles that they may run, without any signal. The controls
    /// that show them already stay in place.
    void display(const std::vector<Window>& windows, std::span<const Profile> targets);

  signals:
    /// The user wants this done to the windows, whose owner shows what came of it by `display`.
    void edited(const tervale::WindowEdit& edit);
    /// What was edited so far is complete.
    void settled();

  private:
    ScheduleRows* rows;
};

} // namespace tervale
