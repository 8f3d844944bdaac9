#include "TervaleWindow/Profiles/ProfileEdit.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <utility>

namespace tervale {

namespace {

constexpr const char* wrongKind = "a profile of this kind has no place for the edit";

template <class Kind>
Kind& kindOf(Profile& profile) {
    Kind* kind = std::get_if<Kind>(&profile.kind);
    precondition(kind != nullptr, wrongKind);
    return *kind;
}

/// The profile is const if it is.
template <class AnyProfile>
auto* curveIn(AnyProfile& profile) {
    if (auto* temperature = std::get_if<kind::Temperature>(&profile.kind))
        return &temperature->curve;
    auto* load = std::get_if<kind::Load>(&profile.kind);
    return load ? &load->curve : nullptr;
}

template <class Value>
bool set(Value& field, const Value& value) {
    return std::exchange(field, value) != value;
}

} // namespace

bool perform(const ProfileEdit& edit, Profile& profile) {
    return std::visit(overloaded{
                          [&profile](const profileEdit::Rename& rename) {
                              return set(profile.name, rename.name);
                          },
                          [&profile](const profileEdit::FollowInput& follow) {
                              return set(kindOf<kind::Temperature>(profile).input, follow.input);
                          },
                          [&profile](const CurveEdit& curveEdit) {
                              Curve* curve = curveIn(profile);
                              precondition(curve != nullptr, wrongKind);
                              return perform(curveEdit, *curve);
                          },
                          [&profile](const WindowEdit& windowEdit) {
                              return perform(windowEdit, kindOf<kind::Schedule>(profile).windows);
                          },
                      },
                      edit);
}

const Curve* curveOf(const Profile& profile) {
    return curveIn(profile);
}

} // namespace tervale
