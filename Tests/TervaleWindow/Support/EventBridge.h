#pragma once

#include <QAccessibleBridge>
#include <QAccessibleBridgePlugin>

namespace tervale {

/// Brings the toolkit to tell `HeardEvents` what it tells assistive technology, on a platform
/// without any.
class EventBridgePlugin final : public QAccessibleBridgePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QAccessibleBridgeFactoryInterface_iid FILE "EventBridge.json")

  public:
    QAccessibleBridge* create(const QString& key) override;
};

} // namespace tervale
