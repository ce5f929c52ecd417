#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/naturallanguage/nllanguage
typedef NSString* NLLanguage;
// https://developer.apple.com/documentation/naturallanguage/nllanguage/undetermined
extern "C" const NLLanguage NLLanguageUndetermined;
