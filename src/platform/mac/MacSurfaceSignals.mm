#include "platform/mac/MacSurfaceSignals.h"

#include <AppKit/AppKit.h>

namespace {

NSString* const glassDiffusionKey = @"NSGlassDiffusionSetting";

// Only a stored number counts; a string or anything else under the key is no setting.
std::optional<int> integerIn(id value)
{
    if (value == nil || ![value isKindOfClass:[NSNumber class]]) {
        return std::nullopt;
    }
    NSNumber* number = value;
    return int(number.integerValue);
}

} // namespace

bool MacSurfaceSignals::reduceTransparency() const
{
    return [NSWorkspace sharedWorkspace].accessibilityDisplayShouldReduceTransparency;
}

std::optional<int> MacSurfaceSignals::processGlassDiffusion() const
{
    return integerIn([[NSUserDefaults standardUserDefaults] objectForKey:glassDiffusionKey]);
}

std::optional<int> MacSurfaceSignals::globalGlassDiffusion() const
{
    NSDictionary* global = [[NSUserDefaults standardUserDefaults] persistentDomainForName:NSGlobalDomain];
    return integerIn([global objectForKey:glassDiffusionKey]);
}
