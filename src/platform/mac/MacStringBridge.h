#pragma once

// Included by the .mm files only: it speaks Objective-C.
#include <Foundation/Foundation.h>
#include <QString>

// Qt's own NSString conversions exist only in a macOS build of Qt; these go through UTF-8 and serve both.
inline NSString* toNSString(const QString& text)
{
    return [NSString stringWithUTF8String:text.toUtf8().constData()];
}

// Nil gives an empty string.
inline QString toQString(NSString* text)
{
    return text != nil ? QString::fromUtf8(text.UTF8String) : QString();
}
