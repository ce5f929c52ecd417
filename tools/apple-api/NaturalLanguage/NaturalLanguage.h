#pragma once
// Natural Language: https://developer.apple.com/documentation/naturallanguage

#include <Foundation/Foundation.h>
#include <NaturalLanguage/NLLanguage.h>
#include <NaturalLanguage/NLLanguageRecognizer.h>
