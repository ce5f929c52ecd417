#include "platform/mac/MacProcessRunner.h"

#include "platform/mac/MacStringBridge.h"

#include <Foundation/Foundation.h>
#include <coroutine>
#include <dispatch/dispatch.h>
#include <memory>
#include <vector>

namespace {

// Where the background wait leaves the result and finds the coroutine to resume on the GUI thread.
struct PendingExit {
    ProcessResult result;
    bool ended = false;
    std::coroutine_handle<> waiter;
};

struct ExitAwaiter {
    std::shared_ptr<PendingExit> pending;

    bool await_ready() const { return pending->ended; }
    void await_suspend(std::coroutine_handle<> waiter) { pending->waiter = waiter; }
    ProcessResult await_resume() const { return pending->result; }
};

} // namespace

QCoro::Task<ProcessResult> MacProcessRunner::run(QString program, QStringList arguments)
{
    NSTask* task = [[NSTask alloc] init];
    task.executableURL = [NSURL fileURLWithPath:toNSString(program)];
    std::vector<NSString*> words;
    for (const QString& argument : arguments) {
        words.push_back(toNSString(argument));
    }
    task.arguments = [NSArray arrayWithObjects:words.data() count:words.size()];
    NSPipe* errors = [NSPipe pipe];
    task.standardError = errors;
    task.standardOutput = [NSFileHandle fileHandleWithNullDevice];

    NSError* error = nil;
    if (![task launchAndReturnError:&error]) {
        ProcessResult failed;
        failed.launchError = toQString(error.localizedDescription);
        co_return failed;
    }
    auto pending = std::make_shared<PendingExit>();
    // Reading to the end before waiting keeps a chatty tool from stalling on a full pipe.
    dispatch_async(dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_DEFAULT, 0), ^{
      NSData* text = [errors.fileHandleForReading readDataToEndOfFile];
      [task waitUntilExit];
      // A tool killed by a signal reports the signal as its status; it did not exit with it.
      const int status = task.terminationReason == NSTaskTerminationReasonExit ? task.terminationStatus : -1;
      const QByteArray standardError(static_cast<const char*>(text.bytes), qsizetype(text.length));
      dispatch_async(dispatch_get_main_queue(), ^{
        pending->result.exitStatus = status;
        pending->result.standardError = standardError;
        pending->ended = true;
        if (pending->waiter) {
            std::exchange(pending->waiter, {}).resume();
        }
      });
    });
    co_return co_await ExitAwaiter{pending};
}
