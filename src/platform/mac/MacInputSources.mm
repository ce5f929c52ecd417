#include "platform/mac/MacInputSources.h"

#include "platform/mac/MacCFRef.h"
#include "platform/mac/MacStringBridge.h"

#include <Carbon/Carbon.h>

namespace {

TISInputSourceRef sourceOf(const InputSourceRef& ref)
{
    return static_cast<TISInputSourceRef>(const_cast<void*>(ref.get()));
}

// A string-valued property, absent when the source has none or it is not a string.
std::optional<QString> stringProperty(TISInputSourceRef source, CFStringRef key)
{
    const auto value = static_cast<CFTypeRef>(TISGetInputSourceProperty(source, key));
    if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) {
        return std::nullopt;
    }
    return toQString((__bridge NSString*)value);
}

std::optional<PlatformInputSource::Type> typeOf(TISInputSourceRef source)
{
    const std::optional<QString> type = stringProperty(source, kTISPropertyInputSourceType);
    if (!type) {
        return std::nullopt;
    }
    if (*type == toQString((__bridge NSString*)kTISTypeKeyboardLayout)) {
        return PlatformInputSource::Type::keyboardLayout;
    }
    if (*type == toQString((__bridge NSString*)kTISTypeKeyboardInputMode)) {
        return PlatformInputSource::Type::keyboardInputMode;
    }
    return PlatformInputSource::Type::other;
}

PlatformInputSource describe(TISInputSourceRef source)
{
    PlatformInputSource result;
    // The ref owns a retain of its own, so the source outlives the list it came from.
    result.ref = InputSourceRef(CFRetain(source), CFRelease);
    result.name = stringProperty(source, kTISPropertyLocalizedName);
    result.id = stringProperty(source, kTISPropertyInputSourceID);
    result.type = typeOf(source);
    result.hasKeyLayoutData = TISGetInputSourceProperty(source, kTISPropertyUnicodeKeyLayoutData) != nullptr;
    return result;
}

void selectedSourceChanged(CFNotificationCenterRef /*center*/, void* observer, CFNotificationName /*name*/,
                           const void* /*object*/, CFDictionaryRef /*userInfo*/)
{
    static_cast<ListenerList<>*>(observer)->notify();
}

} // namespace

MacInputSources::MacInputSources()
{
    // The distributed centre calls back on the main run loop, which is the GUI thread's.
    CFNotificationCenterAddObserver(CFNotificationCenterGetDistributedCenter(), &m_changes,
                                    selectedSourceChanged, kTISNotifySelectedKeyboardInputSourceChanged,
                                    nullptr, CFNotificationSuspensionBehaviorDeliverImmediately);
}

MacInputSources::~MacInputSources()
{
    CFNotificationCenterRemoveObserver(CFNotificationCenterGetDistributedCenter(), &m_changes,
                                       kTISNotifySelectedKeyboardInputSourceChanged, nullptr);
}

QList<PlatformInputSource> MacInputSources::inputSources()
{
    // No filter and not every installed source: the enabled ones, in the order the user set.
    const MacCFRef<CFArrayRef> list(TISCreateInputSourceList(nullptr, false));
    if (!list || CFGetTypeID(list.get()) != CFArrayGetTypeID()) {
        return {};
    }
    QList<PlatformInputSource> sources;
    for (CFIndex i = 0; i < CFArrayGetCount(list.get()); ++i) {
        const auto source =
            static_cast<TISInputSourceRef>(const_cast<void*>(CFArrayGetValueAtIndex(list.get(), i)));
        if (source != nullptr) {
            sources.append(describe(source));
        }
    }
    return sources;
}

std::optional<PlatformInputSource> MacInputSources::currentSource()
{
    const MacCFRef<TISInputSourceRef> current(TISCopyCurrentKeyboardInputSource());
    if (!current) {
        return std::nullopt;
    }
    return describe(current.get());
}

std::int32_t MacInputSources::selectSource(const InputSourceRef& source)
{
    if (!source) {
        return paramErr;
    }
    return TISSelectInputSource(sourceOf(source));
}

std::optional<QString> MacInputSources::translateKey(const InputSourceRef& source, int keyCode, bool shift)
{
    if (!source || keyCode < 0 || keyCode > 127) {
        return std::nullopt;
    }
    const auto layout =
        static_cast<CFDataRef>(TISGetInputSourceProperty(sourceOf(source), kTISPropertyUnicodeKeyLayoutData));
    if (layout == nullptr) {
        return std::nullopt;
    }
    // A fresh dead-key state per key: a dead key then gives no output rather than waiting for the next key.
    UInt32 deadKeyState = 0;
    UniChar output[4] = {};
    UniCharCount length = 0;
    // The layout takes the modifiers as the high byte of the Carbon modifier mask.
    const UInt32 modifiers = shift ? (shiftKey >> 8) & 0xFF : 0;
    const OSStatus status =
        UCKeyTranslate(reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(layout)), UInt16(keyCode),
                       kUCKeyActionDown, modifiers, LMGetKbdType(), 0, &deadKeyState, 4, &length, output);
    if (status != noErr || length == 0) {
        return std::nullopt;
    }
    return QString(reinterpret_cast<const QChar*>(output), qsizetype(length));
}

ListenerSubscription MacInputSources::subscribeToSourceChanges(std::function<void()> handler)
{
    return m_changes.subscribe(std::move(handler));
}
