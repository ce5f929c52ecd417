#pragma once

#include <QList>
#include <memory>
#include <optional>

// Xlib's own declarations, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;
typedef unsigned long XID;
typedef unsigned long Atom;

// Releases memory that Xlib handed out.
struct XFreeDeleter {
    void operator()(void* data) const;
};
template <typename T> using XPtr = std::unique_ptr<T, XFreeDeleter>;

// One read of a window property: what the server answered and the bytes it gave, owned.
struct X11WindowProperty {
    Atom type = 0;
    int format = 0;
    // Items of `format` bits; 32-bit items arrive as longs, as Xlib hands them out.
    unsigned long count = 0;
    unsigned long bytesAfter = 0;
    XPtr<unsigned char> data;

    // Reads up to lengthUnits 32-bit units from offsetUnits; nullopt when the request fails or the
    // property does not exist. Blocks for one round trip.
    static std::optional<X11WindowProperty> read(Display* display, XID window, Atom property,
                                                 Atom requestedType, long offsetUnits, long lengthUnits);
    // The items of a 32-bit property of that type (windows, atoms, cardinals); empty when it is missing or
    // of another format or type. Blocks for one round trip.
    static QList<unsigned long> readLongs(Display* display, XID window, Atom property, Atom type);
};
