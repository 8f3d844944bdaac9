#pragma once

#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Profiles/DraftOwner.h"

#include <QWidget>

#include <variant>

namespace tervale {

/// The part of a profile's form that depends on its kind, which never changes. It shows the
/// selected profile of the draft.
class ProfileContent : public QWidget {
    Q_OBJECT

  public:
    /// The form for the profile that is selected now. Both outlive it.
    static ProfileContent* make(Model& model, DraftOwner& draft, QWidget* parent);

    /// Shows the profile anew, which is of the same kind.
    virtual void display() = 0;
    /// The profile is no longer selected: whatever a field tells as it goes away is not meant.
    void retire() { retired = true; }

  protected:
    ProfileContent(DraftOwner& draft, QWidget* parent);

    virtual void followEdit(const ProfileEdit& edit) = 0;
    void perform(const ProfileEdit& edit);
    void settle();
    /// Of the kind that this form is for.
    template <class Kind>
    const Kind& shown() const {
        return std::get<Kind>(draft.selected()->kind);
    }

    DraftOwner& draft;

  private:
    bool retired = false;
};

} // namespace tervale
