#pragma once

#include <Foundation/Foundation.h>

// https://sparkle-project.org/documentation/api-reference/Classes/SPUUpdater.html
@interface SPUUpdater : NSObject
// https://sparkle-project.org/documentation/api-reference/Classes/SPUUpdater.html#/c:objc(cs)SPUUpdater(py)canCheckForUpdates
@property(readonly) BOOL canCheckForUpdates;
// https://sparkle-project.org/documentation/api-reference/Classes/SPUUpdater.html#/c:objc(cs)SPUUpdater(im)checkForUpdates
- (void)checkForUpdates;
@end
