// The adapters on AppKit, run on a stand-in for it. A program of its own, since only clang compiles
// them; it says what does not hold.

#include "Platform/macOS/IncreasedContrast.h"
#include "Platform/macOS/OpenMenus.h"
#include "Platform/macOS/ReducedMotion.h"
#include "Platform/macOS/SystemSymbols.h"

#import <AppKit/AppKit.h>
#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>

using namespace tervale;

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
    if (holds)
        return;
    ++failures;
    std::cout << "Does not hold: " << what << '\n';
}

void tell(NSString* name, id menu) {
    [[NSNotificationCenter defaultCenter] postNotificationName:name object:menu];
}

} // namespace

/// Takes down the menus that end.
@interface EndedMenus : NSObject {
  @public
    std::vector<id>* ended;
}
- (void)menuEnded:(NSNotification*)notification;
@end

@implementation EndedMenus
- (void)menuEnded:(NSNotification*)notification {
    ended->push_back([notification object]);
}
@end

namespace {

void menusThatAreOpenAreCancelledTheOutermostFirst() {
    const auto cancel = openMenuCanceller();
    NSMenu* outer = [[[NSMenu alloc] init] autorelease];
    NSMenu* inner = [[[NSMenu alloc] init] autorelease];
    NSMenu* closed = [[[NSMenu alloc] init] autorelease];
    tell(NSMenuDidBeginTrackingNotification, closed);
    tell(NSMenuDidEndTrackingNotification, closed);
    tell(NSMenuDidBeginTrackingNotification, outer);
    tell(NSMenuDidBeginTrackingNotification, inner);
    EndedMenus* witness = [[[EndedMenus alloc] init] autorelease];
    std::vector<id> ended;
    witness->ended = &ended;
    NSNotificationCenter* center = [NSNotificationCenter defaultCenter];
    [center addObserver:witness
               selector:@selector(menuEnded:)
                   name:NSMenuDidEndTrackingNotification
                 object:nil];
    cancel();
    expect(ended == std::vector<id>{outer, inner}, "a cancel ends the open menus");
    cancel();
    expect(ended.size() == 2, "a menu that was cancelled is not cancelled again");
    [center removeObserver:witness];
}

void nobodyFollowsMenusAfterTheCancellerIsGone() {
    openMenuCanceller();
    // Would reach what is no longer there, which the sanitizer sees.
    tell(NSMenuDidBeginTrackingNotification, [[[NSMenu alloc] init] autorelease]);
}

void contrastIsWhatTheSystemSays() {
    expect(!increasedContrast(), "the usual contrast is not increased");
    fakeSystem::increasesContrast = true;
    expect(increasedContrast(), "increased contrast is told");
    fakeSystem::increasesContrast = false;
    expect(!increasedContrast(), "the end of it is told");
}

void motionIsWhatTheSystemSays() {
    expect(!reducedMotionWanted(), "the usual motion is not reduced");
    fakeSystem::reducesMotion = true;
    expect(reducedMotionWanted(), "reduced motion is told");
    expect(!increasedContrast(), "less motion is no more contrast");
    fakeSystem::reducesMotion = false;
    expect(!reducedMotionWanted(), "the end of it is told");
}

void symbolsHaveTheirNaturalSizeAndAreOnlyShrunk() {
    for (const int side : {15, 20, 40, 200}) {
        const auto mask = systemSymbol("fan", side, 1);
        expect(mask && mask->side == side, "a symbol has the size that is asked for");
        const NSRect place = fakeSystem::drawing.place;
        expect(std::abs(NSHeight(place) - 0.8 * side) < 1e-9,
               "a symbol has the height that it has beside text of the square's height");
        expect(std::abs(NSWidth(place) - 0.96 * side) < 1e-9, "its shape is not distorted");
        expect(std::abs(NSMidX(place) - side / 2.0) < 1e-9 &&
                   std::abs(NSMidY(place) - side / 2.0) < 1e-9,
               "it stands in the middle");
    }
}

void masksHoldTheOpacityOfEachPixel() {
    const int side = 50;
    const auto mask = systemSymbol("fan", side, 1);
    const auto& coverage = mask->coverage;
    expect(coverage.size() == std::size_t{side} * side, "a mask has a byte for each pixel");
    const auto drawn = std::count(coverage.begin(), coverage.end(), fakeSystem::opacity);
    const auto empty = std::count(coverage.begin(), coverage.end(), 0);
    expect(drawn == std::ptrdiff_t{48} * 40, "what is drawn has its opacity");
    expect(drawn + empty == std::ptrdiff_t{side} * side, "everything else is transparent");
}

void weightsAreThoseOfTheSystem() {
    const auto weightFor = [](double weight) {
        systemSymbol("fan", 20, weight);
        return fakeSystem::drawing.weight;
    };
    expect(weightFor(1) == NSFontWeightRegular, "1 is regular");
    expect(weightFor(1.15) == NSFontWeightMedium, "1.15 is medium");
    expect(weightFor(1.4) == NSFontWeightSemibold, "1.4 is semibold");
}

void symbolsThatTheSystemLacksAreNone() {
    expect(!systemSymbol("no.such.symbol", 20, 1), "an unknown symbol is none");
    expect(!systemSymbol("fan", 0, 1), "a symbol without room is none");
}

} // namespace

int main() {
    @autoreleasepool {
        menusThatAreOpenAreCancelledTheOutermostFirst();
        nobodyFollowsMenusAfterTheCancellerIsGone();
        contrastIsWhatTheSystemSays();
        motionIsWhatTheSystemSays();
        symbolsHaveTheirNaturalSizeAndAreOnlyShrunk();
        masksHoldTheOpacityOfEachPixel();
        weightsAreThoseOfTheSystem();
        symbolsThatTheSystemLacksAreNone();
    }
    return failures == 0 ? 0 : 1;
}
