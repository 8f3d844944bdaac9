#pragma once

#include "TervaleWindow/Profiles/DraftStep.h"

#include <QObject>
#include <QUndoStack>

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tervale {

/// The one owner of what is edited in the profiles pane: a `ProfilesDraft`, which holds the values,
/// and what is wrong with each of its profiles. Controls ask it for an edit, which is the only way
/// to change the draft; it validates what the edit touched and tells of that alone. A request that
/// changes nothing tells of nothing.
///
/// It owns the history too. Every edit, and each call that changes the list, is a step of it; edits
/// that go on with one another, such as the moves of a point, are one step until `settle` is
/// called. Saving leaves the history as it is. It ends where its steps no longer lead to the draft:
/// when that follows the agent's list. A draft that is kept keeps its history, whatever list the
/// agent has.
class DraftOwner final : public QObject {
    Q_OBJECT

  public:
    using Problems = std::vector<std::string>;
    /// As `problems` in Profiles/Validation.h.
    using Validator = std::function<Problems(const Profile&, std::span<const Profile>)>;

    explicit DraftOwner(Validator validator, QObject* parent = nullptr);
    ~DraftOwner() override;

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
    /// What was edited so far is complete: whatever follows is another step.
    void settle();
    /// The profiles, to be sent to the agent now.
    const std::vector<Profile>& takeToSave();
    /// See `ProfilesDraft::follow`; it is known here what was sent.
    void follow(bool connected, const std::vector<Profile>& list);

    /// To be looked at; each step has a name, such as "Move Point".
    const QUndoStack& history() const { return steps; }
    void undo();
    void redo();

  signals:
    /// Profiles came, went or are others, and another may be selected.
    void listChanged();
    /// Another profile of the same list is selected, or none.
    void selectionChanged();
    /// The edit changed the selected profile, which is at this place in the list.
    void edited(const tervale::ProfileEdit& edit, std::size_t index);
    /// An edit changed what is wrong with the profile at this place.
    void problemsChanged(std::size_t index);
    /// The agent has confirmed a list that was taken to be saved.
    void saved();
    /// What can be saved or reverted may be different; after each of the other signals.
    void changed();

  private:
    class Command;
    using Way = void (DraftStep::*)(ProfilesDraft&) const;

    /// Runs what may change the whole list.
    template <class Change>
    void change(const Change& change);
    /// The same as a step of this name.
    template <class Change>
    void changeAsStep(const QString& name, const Change& change);
    void take(const DraftStep& step, Way way);
    bool wasSent(const std::vector<Profile>& list);
    void judge(std::size_t index);
    void judgeAll();

    Validator validator;
    ProfilesDraft working;
    QUndoStack steps;
    /// Steps of one run become one.
    int run = 0;
    /// What the run goes on with; nothing once it is complete.
    std::optional<EditTarget> going;
    /// While a step is taken back or done again, no control means what it tells.
    bool stepping = false;
    /// Lists that the agent has not confirmed yet, the oldest first.
    std::vector<std::vector<Profile>> sent;
    // Of each profile, in their order.
    std::vector<Problems> found;
    std::vector<std::size_t> textSizes;
};

} // namespace tervale
