#include "X11WindowProperty.h"

#include <X11/Xlib.h>

void XFreeDeleter::operator()(void* data) const
{
    if (data != nullptr) {
        XFree(data);
    }
}

std::optional<X11WindowProperty> X11WindowProperty::read(Display* display, XID window, Atom property,
                                                         Atom requestedType, long offsetUnits,
                                                         long lengthUnits)
{
    X11WindowProperty result;
    unsigned char* raw = nullptr;
    if (XGetWindowProperty(display, window, property, offsetUnits, lengthUnits, False, requestedType,
                           &result.type, &result.format, &result.count, &result.bytesAfter,
                           &raw) != Success) {
        return std::nullopt;
    }
    result.data.reset(raw);
    if (result.type == None) {
        return std::nullopt;
    }
    return result;
}

QList<unsigned long> X11WindowProperty::readLongs(Display* display, XID window, Atom property, Atom type)
{
    const auto read = X11WindowProperty::read(display, window, property, type, 0, 4096);
    if (!read || !read->data || read->format != 32 || read->type != type) {
        return {};
    }
    const auto* items = reinterpret_cast<const unsigned long*>(read->data.get());
    return QList<unsigned long>(items, items + read->count);
}
