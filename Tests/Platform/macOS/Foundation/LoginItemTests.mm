// The adapter on ServiceManagement, run on a stand-in for it. A program of its own, since only
// clang compiles it; it says what does not hold.

#include "Platform/macOS/LoginItem.h"

#import <ServiceManagement/ServiceManagement.h>
#include <iostream>
#include <string>
#include <vector>

using namespace tervale;

namespace {

using Requests = std::vector<std::string>;

int failures = 0;

void expect(bool holds, const char* what) {
    if (holds)
        return;
    ++failures;
    std::cout << "Does not hold: " << what << '\n';
}

void start(SMAppServiceStatus status) {
    fakeSystem::loginStatus = status;
    fakeSystem::refuses = false;
    fakeSystem::refusal = nil;
    fakeSystem::requests.clear();
}

void theAgentIsRegisteredAndUnregistered() {
    start(SMAppServiceStatusNotFound);
    expect(!setLoginItem(true), "an agent can be registered");
    expect(fakeSystem::requests == Requests{"register"}, "it is registered once");
    expect(!setLoginItem(false), "it can be unregistered");
    expect(fakeSystem::requests == Requests{"register", "unregister"}, "it is unregistered once");
}

void whatIsSoAlreadyIsLeftAlone() {
    start(SMAppServiceStatusEnabled);
    expect(!setLoginItem(true), "what is registered is well");
    for (const SMAppServiceStatus off :
         {SMAppServiceStatusNotRegistered, SMAppServiceStatusNotFound}) {
        fakeSystem::loginStatus = off;
        expect(!setLoginItem(false), "what is not registered is well");
    }
    expect(fakeSystem::requests.empty(), "the system is asked for nothing");
}

void anApprovalThatIsMissingIsNeitherOnNorOff() {
    start(SMAppServiceStatusRequiresApproval);
    setLoginItem(true);
    fakeSystem::loginStatus = SMAppServiceStatusRequiresApproval;
    setLoginItem(false);
    expect(fakeSystem::requests == Requests{"register", "unregister"}, "the system is asked");
}

void aRefusalIsToldInTheSystemsWords() {
    start(SMAppServiceStatusNotFound);
    fakeSystem::refuses = true;
    fakeSystem::refusal = @"Operation not permitted";
    expect(setLoginItem(true) == "Operation not permitted", "it tells why it cannot be turned on");
    fakeSystem::loginStatus = SMAppServiceStatusEnabled;
    expect(setLoginItem(false) == "Operation not permitted",
           "it tells why it cannot be turned off");
    fakeSystem::refusal = nil;
    expect(setLoginItem(false) == "The system gives no reason.",
           "a refusal is told without a reason");
}

} // namespace

int main() {
    @autoreleasepool {
        theAgentIsRegisteredAndUnregistered();
        whatIsSoAlreadyIsLeftAlone();
        anApprovalThatIsMissingIsNeitherOnNorOff();
        aRefusalIsToldInTheSystemsWords();
    }
    return failures == 0 ? 0 : 1;
}
