#include "TervaleWindow/Profiles/ProfileEdit.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <type_traits>
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

/// Null for a kind without one. The curve is const if the profile is.
template <class AnyProfile>
auto* curveIn(AnyProfile& profile) {
    using AnyCurve = std::conditional_t<std::is_const_v<AnyProfile>, const Curve, Curve>;
    return std::visit(
        [](auto& held) -> AnyCurve* {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, kind::Schedule>)
                return nullptr;
            else
                return &held.curve;
        },
        profile.kind);
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
