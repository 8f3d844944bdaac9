#pragma once

#include "TervaleWindow/Profiles/ProfilesDraft.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tervale {

/// The one owner of what is edited in the profiles pane: a `ProfilesDraft`, which holds the values,
/// and what is wrong with each of its profiles. Controls ask it for an edit, which is the only way
/// to change the draft; it validates what the edit touched and tells of that alone. A request that
/// changes nothing tells of nothing.
class DraftOwner final : public QObject {
    Q_OBJECT

  public:
    using Problems = std::vector<std::string>;
    /// As `problems` in Profiles/Validation.h.
    using Validator = std::function<Problems(const Profile&, std::span<const Profile>)>;

    explicit DraftOwner(Validator validator, QObject* parent = nullptr);

    const ProfilesDraft& draft() const { return working; }
    const std::vector<Profile>& profiles() const { return working.profiles; }
    const Profile* selected() const { return working.selected(); }
    /// Those of the profile at this place in the list.
    const Problems& problemsAt(std::size_t index) const { return found[index]; }
    /// Those of the selected profile; none without one.
    Problems problemsOfSelected() const;
    /// Whether any profile has problems.
    bool invalid() const;
    /// Whether the bridge cannot carry the draft, since its text is too long.
    bool tooLong() const;
    bool canRevert() const { return working.canRevert(); }
    bool canSave() const { return canRevert() && !invalid() && !tooLong(); }

    void select(const std::optional<UUID>& id);
    void add(const std::string& name, const ProfileKind& kind);
    void duplicate();
    void remove();
    void revert();
    /// Edits the selected profile.
    void perform(const ProfileEdit& edit);
    /// See `ProfilesDraft::follow`.
    void follow(bool connected, const std::vector<Profile>& list);

  signals:
    /// Profiles came, went or are others, and another may be selected.
    void listChanged();
    /// Another profile of the same list is selected, or none.
    void selectionChanged();
    /// The edit changed the selected profile, which is at this place in the list.
    void edited(const tervale::ProfileEdit& edit, std::size_t index);
    /// An edit changed what is wrong with the profile at this place.
    void problemsChanged(std::size_t index);
    /// What can be saved or reverted may be different; after each of the other signals.
    void changed();

  private:
    /// Runs what may change the whole list.
    template <class Change>
    void change(const Change& change);
    void judgeAll();

    Validator validator;
    ProfilesDraft working;
    // Of each profile, in their order.
    std::vector<Problems> found;
    std::vector<std::size_t> textSizes;
};

} // namespace tervale
