#pragma once

#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/Profile.h"

namespace tervale {

// Every type's own pair, declared together, so that the types that hold it find it.
void write(JSONWriter& json, const UUID& id);
void write(JSONWriter& json, SensorGroup group);
void write(JSONWriter& json, const TemperatureInput& input);
void write(JSONWriter& json, const CurvePoint& point);
void write(JSONWriter& json, const Curve& curve);
void write(JSONWriter& json, const Action& action);
void write(JSONWriter& json, const Window& window);
void write(JSONWriter& json, const ProfileKind& kind);
void write(JSONWriter& json, const Profile& profile);
void write(JSONWriter& json, Date date);
void write(JSONWriter& json, const BridgeCommand& command);
void write(JSONWriter& json, const BridgeState& state);

UUID read(const JSONReader& json, Type<UUID>);
SensorGroup read(const JSONReader& json, Type<SensorGroup>);
TemperatureInput read(const JSONReader& json, Type<TemperatureInput>);
CurvePoint read(const JSONReader& json, Type<CurvePoint>);
Curve read(const JSONReader& json, Type<Curve>);
Action read(const JSONReader& json, Type<Action>);
Window read(const JSONReader& json, Type<Window>);
ProfileKind read(const JSONReader& json, Type<ProfileKind>);
Profile read(const JSONReader& json, Type<Profile>);
Date read(const JSONReader& json, Type<Date>);
BridgeCommand read(const JSONReader& json, Type<BridgeCommand>);
BridgeState read(const JSONReader& json, Type<BridgeState>);

} // namespace tervale
