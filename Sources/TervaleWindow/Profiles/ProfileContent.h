#pragma once

#include "Profiles/Profile.h"
#include "TervaleWindow/Model/Model.h"

#include <QWidget>

#include <span>

namespace tervale {

/// The part of a profile's form that depends on its kind, which never changes.
class ProfileContent : public QWidget {
    Q_OBJECT

  public:
    /// The form for profiles of this one's kind. `model` outlives it.
    static ProfileContent* make(Model& model, const Profile& profile, QWidget* parent);

    /// Shows a profile of the same kind without any signal; `all` is the whole draft.
    virtual void display(const Profile& profile, std::span<const Profile> all) = 0;

  signals:
    /// The user changed it.
    void kindChanged(const tervale::ProfileKind& kind);

  protected:
    using QWidget::QWidget;
};

} // namespace tervale
