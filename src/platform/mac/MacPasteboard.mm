#include "platform/mac/MacPasteboard.h"

#include "platform/mac/MacStringBridge.h"

#include <AppKit/AppKit.h>

namespace {

QByteArray toQByteArray(NSData* data)
{
    return QByteArray(static_cast<const char*>(data.bytes), qsizetype(data.length));
}

NSData* toNSData(const QByteArray& bytes)
{
    return [NSData dataWithBytes:bytes.constData() length:NSUInteger(bytes.size())];
}

QStringList toQStringList(NSArray<NSPasteboardType>* types)
{
    QStringList names;
    for (NSUInteger i = 0; i < types.count; ++i) {
        names.append(toQString(types[i]));
    }
    return names;
}

} // namespace

qint64 MacPasteboard::changeCount()
{
    return NSPasteboard.generalPasteboard.changeCount;
}

QCoro::Task<std::optional<QStringList>> MacPasteboard::types()
{
    NSArray<NSPasteboardType>* types = NSPasteboard.generalPasteboard.types;
    if (types == nil) {
        co_return std::nullopt;
    }
    co_return toQStringList(types);
}

QCoro::Task<std::optional<QByteArray>> MacPasteboard::data(QString type)
{
    NSData* data = [NSPasteboard.generalPasteboard dataForType:toNSString(type)];
    if (data == nil) {
        co_return std::nullopt;
    }
    co_return toQByteArray(data);
}

QCoro::Task<std::optional<QString>> MacPasteboard::string()
{
    NSString* text = [NSPasteboard.generalPasteboard stringForType:NSPasteboardTypeString];
    if (text == nil) {
        co_return std::nullopt;
    }
    co_return toQString(text);
}

QCoro::Task<PasteboardSnapshot> MacPasteboard::snapshot()
{
    PasteboardSnapshot snapshot;
    NSArray<NSPasteboardItem*>* items = NSPasteboard.generalPasteboard.pasteboardItems;
    for (NSUInteger i = 0; i < items.count; ++i) {
        NSPasteboardItem* item = items[i];
        SavedPasteboardItem saved;
        NSArray<NSPasteboardType>* types = item.types;
        for (NSUInteger j = 0; j < types.count; ++j) {
            // A type promised by an owner that no longer answers gives no data; the item keeps the rest.
            if (NSData* data = [item dataForType:types[j]]; data != nil) {
                saved.values.append({toQString(types[j]), toQByteArray(data)});
            }
        }
        snapshot.items.append(std::move(saved));
    }
    co_return snapshot;
}

void MacPasteboard::restore(const PasteboardSnapshot& snapshot)
{
    NSPasteboard* pasteboard = NSPasteboard.generalPasteboard;
    [pasteboard clearContents];
    if (snapshot.items.isEmpty()) {
        return;
    }
    NSMutableArray<NSPasteboardItem*>* items = [[NSMutableArray alloc] init];
    for (const SavedPasteboardItem& saved : snapshot.items) {
        NSPasteboardItem* item = [[NSPasteboardItem alloc] init];
        for (const SavedPasteboardValue& value : saved.values) {
            [item setData:toNSData(value.data) forType:toNSString(value.type)];
        }
        [items addObject:item];
    }
    [pasteboard writeObjects:items];
}

void MacPasteboard::clear()
{
    [NSPasteboard.generalPasteboard clearContents];
}

void MacPasteboard::writeString(const QString& text)
{
    NSPasteboard* pasteboard = NSPasteboard.generalPasteboard;
    [pasteboard clearContents];
    [pasteboard setString:toNSString(text) forType:NSPasteboardTypeString];
}
