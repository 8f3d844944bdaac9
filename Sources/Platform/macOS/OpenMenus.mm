#include "Platform/macOS/OpenMenus.h"

#import <AppKit/AppKit.h>
#include <algorithm>
#include <memory>
#include <vector>

/// Keeps the menus that are open, the outermost first.
@interface TervaleOpenMenus : NSObject {
    // Not every runtime constructs members that are no objects of its own.
    std::vector<NSMenu*>* menus;
}
- (void)cancel;
- (void)menuOpened:(NSNotification*)notification;
- (void)menuClosed:(NSNotification*)notification;
@end

@implementation TervaleOpenMenus

- (id)init {
    self = [super init];
    if (self)
        menus = new std::vector<NSMenu*>;
    return self;
}

- (void)dealloc {
    delete menus;
    [super dealloc];
}

- (void)cancel {
    const std::vector<NSMenu*> open = *menus;
    for (NSMenu* menu : open)
        [menu cancelTrackingWithoutAnimation];
}

- (void)menuOpened:(NSNotification*)notification {
    menus->push_back([notification object]);
}

- (void)menuClosed:(NSNotification*)notification {
    menus->erase(std::remove(menus->begin(), menus->end(), [notification object]), menus->end());
}

@end

namespace tervale {

namespace {

/// Follows the menus as long as it lives.
class Following {
  public:
    Following() : menus([[TervaleOpenMenus alloc] init]) {
        NSNotificationCenter* center = [NSNotificationCenter defaultCenter];
        [center addObserver:menus
                   selector:@selector(menuOpened:)
                       name:NSMenuDidBeginTrackingNotification
                     object:nil];
        [center addObserver:menus
                   selector:@selector(menuClosed:)
                       name:NSMenuDidEndTrackingNotification
                     object:nil];
    }
    ~Following() {
        [[NSNotificationCenter defaultCenter] removeObserver:menus];
        [menus release];
    }
    Following(const Following&) = delete;
    Following& operator=(const Following&) = delete;

    void cancel() { [menus cancel]; }

  private:
    TervaleOpenMenus* menus;
};

} // namespace

std::function<void()> openMenuCanceller() {
    @autoreleasepool {
        return [following = std::make_shared<Following>()] {
            @autoreleasepool {
                following->cancel();
            }
        };
    }
}

} // namespace tervale
