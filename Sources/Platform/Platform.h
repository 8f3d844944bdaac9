#pragma once

#include "Platform/DesktopLook.h"
#include "Platform/SessionWatch.h"
#include "Platform/SleepWatch.h"
#include "Platform/SymbolMask.h"
#include "Profiles/LoadReading.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "SMC/IORegistry.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tervale {

// What the running operating system offers behind the seams. The one place where the system's
// adapters are chosen.

/// The registry of this machine's kernel services; on Linux that of a simulated Mac served at the
/// usual place.
std::unique_ptr<IORegistry> makeRegistry();

/// The controller that another process serves on a socket; null where none are served.
std::unique_ptr<IORegistry> makeRemoteRegistry(const std::filesystem::path& socket);

/// The channel to the other programs of the user's session; null where there is none. Needs an
/// application object of the toolkit, whose event loop delivers.
std::unique_ptr<NotificationCenter> makeNotificationCenter();

/// The user's preferences of a domain, such as "tervale".
std::unique_ptr<Preferences> makePreferences(const std::string& domain);

/// Tells this machine's processor load since it was last asked: percent, 0 to 100; nothing when it
/// is not known.
LoadReading makeProcessorLoad();

/// Tells the text under a key of the information dictionary of the program's bundle, such as
/// "CFBundleVersion"; nothing for a key that is missing or holds something else. Null for a program
/// that lies in no bundle.
std::function<std::optional<std::string>(const std::string& key)> makeBundleText();

/// Draws a symbol of the system's by its name into a square of so many pixels a side, in a weight
/// (1 is regular, up to 1.2 medium, above semibold); nothing for one that the system does not have.
/// Null for a system without symbols.
std::function<std::optional<SymbolMask>(const std::string& name, int side, double weight)>
makeSystemSymbols();

/// Follows the menus of the system's that the user holds open from now on, and cancels them when it
/// is called. Null for a system whose menus end with the toolkit's event loop.
std::function<void()> makeOpenMenuCanceller();

/// Calls `handler` every `interval` for as long as what it returns lives, each call up to
/// `tolerance` late. Null where no timer of the system's takes a tolerance: the toolkit's serve.
std::shared_ptr<void> makeTolerantTimer(std::chrono::milliseconds interval,
                                        std::chrono::milliseconds tolerance,
                                        std::function<void()> handler);

/// Tells whether the user asked the system for more contrast; null for a system whose palette alone
/// tells it.
std::function<bool()> makeIncreasedContrast();

/// Tells what the user asked the desktop's windows to look like, as far as it has answered, and
/// calls `changed` whenever that is something else. Null for a system whose palette alone tells
/// it. Quick. Needs an application object of the toolkit.
std::function<DesktopLook()> makeDesktopLook(std::function<void()> changed);

/// Tells whether the user asked the desktop or the system for less motion; null where nobody can
/// tell. Quick. Needs an application object of the toolkit.
std::function<bool()> makeReducedMotion();

/// Has the system start the agent of the program's bundle at login, or no longer: why it refuses,
/// nothing if all is well. Null for a system where the person says so to the service manager.
std::function<std::optional<std::string>(bool enabled)> makeLoginItem();

/// Calls the handlers around each sleep of the machine for as long as what it returns lives. Null
/// where the system does not tell.
std::shared_ptr<void> makeSleepWatch(SleepHandlers handlers);

/// Calls `over`, once, when the system says that the user's session is. Null where it does not
/// tell.
std::unique_ptr<SessionWatch> makeSessionWatch(std::function<void()> over);

/// Has an event loop of the toolkit deliver notifications also in a program without windows. Before
/// the application object.
void prepareEventLoop();

} // namespace tervale
