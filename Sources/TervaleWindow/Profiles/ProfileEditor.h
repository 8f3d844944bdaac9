#pragma once

#include "Profiles/Profile.h"
#include "TervaleWindow/Model/Model.h"

#include <QWidget>

#include <span>
#include <string>
#include <vector>

class QLineEdit;

namespace tervale {

class Card;
class ProfileContent;

/// The form of one profile: its name, what depends on its kind, and its problems. It shows what it
/// is told and says what the user changed; controls that show it already keep cursor and focus.
class ProfileEditor final : public QWidget {
    Q_OBJECT

  public:
    /// For this profile and no other, which it does not show yet. `model` outlives the form.
    ProfileEditor(Model& model, const Profile& profile, QWidget* parent = nullptr);

    const UUID& id() const { return profile.id; }
    /// Shows the profile as it is now, of the same id and kind, and its problems, without any
    /// signal. `all` is the whole draft.
    void display(const Profile& changed, std::span<const Profile> all,
                 const std::vector<std::string>& problems);
    /// Whether `display` can show it.
    bool isFor(const Profile& other) const;

  signals:
    /// The user changed it.
    void profileChanged(const tervale::Profile& profile);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showProblems(const std::vector<std::string>& found);

    Profile profile;
    QLineEdit* name;
    ProfileContent* content;
    Card* problemsCard;
    std::vector<std::string> problemsShown;
};

} // namespace tervale
