#pragma once

#include <NaturalLanguage/NLLanguage.h>

// https://developer.apple.com/documentation/naturallanguage/nllanguagerecognizer
@interface NLLanguageRecognizer : NSObject
// https://developer.apple.com/documentation/naturallanguage/nllanguagerecognizer/processstring(_:)
- (void)processString:(NSString*)string;
// https://developer.apple.com/documentation/naturallanguage/nllanguagerecognizer/dominantlanguage
@property(readonly, copy) NLLanguage dominantLanguage;
@end
