#import <ServiceManagement/ServiceManagement.h>

SMAppServiceStatus fakeSystem::loginStatus = SMAppServiceStatusNotFound;
NSString* fakeSystem::refusal = nil;
bool fakeSystem::refuses = false;
std::vector<std::string> fakeSystem::requests;

namespace {

BOOL answer(const char* request, SMAppServiceStatus status, NSError** error) {
    fakeSystem::requests.emplace_back(request);
    if (!fakeSystem::refuses) {
        fakeSystem::loginStatus = status;
        return YES;
    }
    if (fakeSystem::refusal)
        *error =
            [NSError errorWithDomain:@"SMAppServiceErrorDomain"
                                code:1
                            userInfo:[NSDictionary dictionaryWithObject:fakeSystem::refusal
                                                                 forKey:NSLocalizedDescriptionKey]];
    return NO;
}

} // namespace

@implementation SMAppService

+ (SMAppService*)agentServiceWithPlistName:(NSString*)plistName {
    if (![plistName isEqualToString:[NSString stringWithUTF8String:fakeSystem::propertyList]])
        return nil;
    return [[[SMAppService alloc] init] autorelease];
}

- (SMAppServiceStatus)status {
    return fakeSystem::loginStatus;
}

- (BOOL)registerAndReturnError:(NSError**)error {
    return answer("register", SMAppServiceStatusEnabled, error);
}

- (BOOL)unregisterAndReturnError:(NSError**)error {
    return answer("unregister", SMAppServiceStatusNotRegistered, error);
}

@end
