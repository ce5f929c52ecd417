#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nsglobaldomain
extern "C" NSString* const NSGlobalDomain;

// https://developer.apple.com/documentation/foundation/nsuserdefaults
@interface NSUserDefaults : NSObject
// https://developer.apple.com/documentation/foundation/nsuserdefaults/1416603-standarduserdefaults
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
// https://developer.apple.com/documentation/foundation/nsuserdefaults/1410095-objectforkey
- (id)objectForKey:(NSString*)defaultName;
// https://developer.apple.com/documentation/foundation/nsuserdefaults/1409524-persistentdomainforname
- (NSDictionary<NSString*, id>*)persistentDomainForName:(NSString*)domainName;
@end
