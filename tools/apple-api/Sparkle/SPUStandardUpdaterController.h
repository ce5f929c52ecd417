#pragma once

#include <Foundation/Foundation.h>
#include <Sparkle/SPUUpdater.h>

// https://sparkle-project.org/documentation/api-reference/Protocols/SPUUpdaterDelegate.html
@protocol SPUUpdaterDelegate
@end
// https://sparkle-project.org/documentation/api-reference/Protocols/SPUStandardUserDriverDelegate.html
@protocol SPUStandardUserDriverDelegate
@end

// https://sparkle-project.org/documentation/api-reference/Classes/SPUStandardUpdaterController.html
@interface SPUStandardUpdaterController : NSObject
// https://sparkle-project.org/documentation/api-reference/Classes/SPUStandardUpdaterController.html#/c:objc(cs)SPUStandardUpdaterController(im)initWithStartingUpdater:updaterDelegate:userDriverDelegate:
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(id<SPUStandardUserDriverDelegate>)userDriverDelegate;
// https://sparkle-project.org/documentation/api-reference/Classes/SPUStandardUpdaterController.html#/c:objc(cs)SPUStandardUpdaterController(py)updater
@property(readonly) SPUUpdater* updater;
@end
