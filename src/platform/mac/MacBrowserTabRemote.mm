#include "platform/mac/MacBrowserTabRemote.h"

#include "platform/mac/MacStringBridge.h"

#include <Foundation/Foundation.h>

namespace {

// The string the script gives; nullopt when it cannot be made or fails, the failure logged.
std::optional<QString> runAppleScript(NSString* source)
{
    NSAppleScript* script = [[NSAppleScript alloc] initWithSource:source];
    if (script == nil) {
        return std::nullopt;
    }
    NSDictionary<NSString*, id>* error = nil;
    NSAppleEventDescriptor* result = [script executeAndReturnError:&error];
    if (error != nil) {
        NSLog(@"MivoraAI Chrome app window: %@", error.description);
    }
    NSString* value = result.stringValue;
    if (value == nil) {
        return std::nullopt;
    }
    return toQString(value);
}

} // namespace

QString MacBrowserTabRemote::applicationIdentifier()
{
    return QStringLiteral("com.google.Chrome");
}

std::optional<QString> MacBrowserTabRemote::activeTabUrl()
{
    return runAppleScript(@"tell application \"Google Chrome\" to get URL of active tab of front window");
}

void MacBrowserTabRemote::closeActiveTab()
{
    runAppleScript(@"tell application \"Google Chrome\" to close active tab of front window");
}

void MacBrowserTabRemote::openAppWindow(const QString& url)
{
    NSTask* task = [[NSTask alloc] init];
    task.executableURL = [NSURL fileURLWithPath:@"/usr/bin/open"];
    task.arguments = @[
        @"-na", @"Google Chrome", @"--args", @"--profile-directory=Profile 1",
        [@"--app=" stringByAppendingString:toNSString(url)]
    ];
    // A browser that does not start is not reported: the caller's poll simply finds no new window.
    [task launchAndReturnError:nil];
}
