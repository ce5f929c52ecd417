#pragma once
// Sparkle, the updater framework bundled with the application: https://sparkle-project.org/documentation/
// Declared from its published API reference, https://sparkle-project.org/documentation/api-reference/

#include <Foundation/Foundation.h>
#include <Sparkle/SPUStandardUpdaterController.h>
#include <Sparkle/SPUUpdater.h>
