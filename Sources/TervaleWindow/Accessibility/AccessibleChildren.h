#pragma once

#include <QAccessible>

#include <functional>
#include <vector>

namespace tervale {

/// The interfaces of parts that are no objects of their own, such as the rows of a list: one for
/// each place, made when it is asked for. It stays the same for as long as anybody may know it.
class AccessibleChildren {
  public:
    using Maker = std::function<QAccessibleInterface*(int place)>;

    explicit AccessibleChildren(Maker make);
    ~AccessibleChildren();
    AccessibleChildren(const AccessibleChildren&) = delete;
    AccessibleChildren& operator=(const AccessibleChildren&) = delete;

    QAccessibleInterface* at(int place);
    /// -1 for one that was never asked for.
    int indexOf(const QAccessibleInterface* child) const;
    /// From now on there are other parts; whoever knows one of these knows nothing of them.
    void renew();

  private:
    Maker makeChild;
    std::vector<QAccessible::Id> made;
};

} // namespace tervale
