#include "PaintedWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <cstring>

namespace {

Window findViewable(Display* display, Window parent, const QByteArray& title)
{
    Window root = 0;
    Window up = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (XQueryTree(display, parent, &root, &up, &children, &count) == 0) {
        return 0;
    }
    Window found = 0;
    for (unsigned int i = 0; i < count && found == 0; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, children[i], &attributes) == 0 ||
            attributes.map_state != IsViewable) {
            continue;
        }
        char* name = nullptr;
        if (XFetchName(display, children[i], &name) != 0 && name != nullptr) {
            if (title == name) {
                found = children[i];
            }
            XFree(name);
        }
        if (found == 0) {
            found = findViewable(display, children[i], title);
        }
    }
    XFree(children);
    return found;
}

} // namespace

unsigned long viewableWindow(Display* display, const QString& title)
{
    return findViewable(display, DefaultRootWindow(display), title.toUtf8());
}

bool windowPainted(Display* display, const QString& title, QPoint probe)
{
    const Window window = viewableWindow(display, title);
    if (window == 0) {
        return false;
    }
    XImage* image = XGetImage(display, window, probe.x(), probe.y(), 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) {
        return false;
    }
    const bool painted = XGetPixel(image, 0, 0) != 0;
    XDestroyImage(image);
    return painted;
}

QByteArray windowPixels(Display* display, unsigned long window)
{
    XWindowAttributes attributes;
    if (window == 0 || XGetWindowAttributes(display, window, &attributes) == 0) {
        return {};
    }
    XImage* image = XGetImage(display, window, 0, 0, unsigned(attributes.width), unsigned(attributes.height),
                              AllPlanes, ZPixmap);
    if (image == nullptr) {
        return {};
    }
    QByteArray pixels;
    if (image->bits_per_pixel == 32) {
        pixels = QByteArray(image->data, qsizetype(image->bytes_per_line) * image->height);
    }
    XDestroyImage(image);
    return pixels;
}

qsizetype differingPixels(const QByteArray& one, const QByteArray& other)
{
    if (one.size() != other.size()) {
        return std::max(one.size(), other.size()) / 4;
    }
    qsizetype differing = 0;
    for (qsizetype at = 0; at + 4 <= one.size(); at += 4) {
        differing += std::memcmp(one.constData() + at, other.constData() + at, 4) != 0 ? 1 : 0;
    }
    return differing;
}
