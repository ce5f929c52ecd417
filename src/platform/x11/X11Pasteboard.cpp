#include "platform/x11/X11Pasteboard.h"

#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11WindowProperty.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHash>
#include <QSocketNotifier>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <list>
#include <poll.h>
#include <vector>

namespace {

using XData = XPtr<unsigned char>;

// An unmapped window that receives our selection traffic; destroyed before its display is closed.
class WindowHandle {
public:
    WindowHandle() = default;
    WindowHandle(Display* display, Window window) : m_display(display), m_window(window) {}
    WindowHandle(const WindowHandle&) = delete;
    WindowHandle& operator=(WindowHandle&& other) noexcept
    {
        std::swap(m_display, other.m_display);
        std::swap(m_window, other.m_window);
        return *this;
    }
    ~WindowHandle()
    {
        if (m_display && m_window) {
            XDestroyWindow(m_display, m_window);
        }
    }
    Window get() const { return m_window; }

private:
    Display* m_display = nullptr;
    Window m_window = 0;
};

// Targets that describe the selection rather than hold its contents; a snapshot leaves them out.
const QStringList& metaTargets()
{
    static const QStringList targets{
        QStringLiteral("TARGETS"),         QStringLiteral("MULTIPLE"), QStringLiteral("TIMESTAMP"),
        QStringLiteral("SAVE_TARGETS"),    QStringLiteral("DELETE"),   QStringLiteral("INSERT_SELECTION"),
        QStringLiteral("INSERT_PROPERTY"), QStringLiteral("LENGTH"),   QStringLiteral("HOST_NAME"),
        QStringLiteral("CLIENT_WINDOW"),   QStringLiteral("CLASS"),    QStringLiteral("NAME"),
    };
    return targets;
}

// Properties are read in pieces of this many 32-bit units.
constexpr long propertyReadUnits = 1 << 16;
// Properties used for incoming conversions, in rotation, so a late answer to an abandoned request never
// lands where a newer one is expected.
constexpr int conversionPropertyCount = 8;

struct Property {
    Atom type = None;
    int format = 0;
    QByteArray data;
};

struct OwnedContents {
    QList<SavedPasteboardValue> values;
    Time time = CurrentTime;
};

// One value sent in pieces to a requestor that deletes the property after each one.
struct OutgoingTransfer {
    Window requestor;
    Atom property;
    Atom type;
    QByteArray data;
    qsizetype offset = 0;
};

} // namespace

struct X11Pasteboard::Private {
    // Declared before the window, so the window is destroyed while its connection is still open.
    std::optional<X11DisplayConnection> display;
    WindowHandle window;
    int xfixesEventBase = 0;
    qint64 changeCount = 0;
    std::optional<OwnedContents> owned;
    std::list<OutgoingTransfer> transfers;
    QHash<QString, Atom> atoms;
    QHash<Atom, QString> atomNames;
    int nextConversionProperty = 0;
    qsizetype chunkSize = 0;
    std::unique_ptr<QSocketNotifier> notifier;

    Atom clipboard = None;
    Atom targets = None;
    Atom timestamp = None;
    Atom incr = None;

    Display* dpy() const { return display->get(); }
    Atom atom(const QString& name);
    QString atomName(Atom atom);
    QStringList atomNamesOf(const QByteArray& packed);

    void dispatchPending();
    void handle(XEvent& event);
    std::optional<XEvent> waitFor(const std::function<bool(const XEvent&)>& wanted, QDeadlineTimer deadline);

    Window currentOwner() const { return XGetSelectionOwner(dpy(), clipboard); }
    std::optional<Property> takeProperty(Window window, Atom property);
    std::optional<QByteArray> convert(Atom target);
    std::optional<QByteArray> receiveIncrementally(Atom property);
    std::optional<QByteArray> read(const QString& type);
    std::optional<QStringList> readTypes();

    void own(QList<SavedPasteboardValue> values);
    void disown();
    void serve(const XSelectionRequestEvent& request);
    void continueTransfer(const XPropertyEvent& event);
    void handOverToManager();
};

Atom X11Pasteboard::Private::atom(const QString& name)
{
    auto found = atoms.constFind(name);
    if (found != atoms.constEnd()) {
        return *found;
    }
    const Atom value = XInternAtom(dpy(), name.toUtf8().constData(), False);
    atoms.insert(name, value);
    atomNames.insert(value, name);
    return value;
}

QString X11Pasteboard::Private::atomName(Atom value)
{
    auto found = atomNames.constFind(value);
    if (found != atomNames.constEnd()) {
        return *found;
    }
    X11ErrorTrap trap(dpy());
    const XData name(reinterpret_cast<unsigned char*>(XGetAtomName(dpy(), value)));
    if (trap.sync() != 0 || !name) {
        return {};
    }
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(name.get()));
    atomNames.insert(value, text);
    atoms.insert(text, value);
    return text;
}

QStringList X11Pasteboard::Private::atomNamesOf(const QByteArray& packed)
{
    QStringList names;
    for (qsizetype offset = 0; offset + 4 <= packed.size(); offset += 4) {
        quint32 value = 0;
        std::memcpy(&value, packed.constData() + offset, 4);
        const QString name = value == None ? QString() : atomName(value);
        if (!name.isEmpty() && !names.contains(name)) {
            names.append(name);
        }
    }
    return names;
}

void X11Pasteboard::Private::dispatchPending()
{
    while (XPending(dpy()) > 0) {
        XEvent event;
        XNextEvent(dpy(), &event);
        handle(event);
    }
}

void X11Pasteboard::Private::handle(XEvent& event)
{
    if (event.type == xfixesEventBase + XFixesSelectionNotify) {
        const auto& notify = reinterpret_cast<const XFixesSelectionNotifyEvent&>(event);
        if (notify.selection == clipboard) {
            ++changeCount;
            if (owned && notify.owner == window.get()) {
                owned->time = notify.selection_timestamp;
            }
        }
        return;
    }
    switch (event.type) {
    case SelectionRequest:
        serve(event.xselectionrequest);
        break;
    case SelectionClear:
        // A clear can be stale when we took the clipboard back meanwhile; the server knows who owns it now.
        if (event.xselectionclear.selection == clipboard && currentOwner() != window.get()) {
            owned.reset();
        }
        break;
    case PropertyNotify:
        if (event.xproperty.state == PropertyDelete) {
            continueTransfer(event.xproperty);
        }
        break;
    case DestroyNotify:
        transfers.remove_if([&](const OutgoingTransfer& transfer) {
            return transfer.requestor == event.xdestroywindow.window;
        });
        break;
    default:
        break;
    }
}

std::optional<XEvent> X11Pasteboard::Private::waitFor(const std::function<bool(const XEvent&)>& wanted,
                                                      QDeadlineTimer deadline)
{
    for (;;) {
        while (XPending(dpy()) > 0) {
            XEvent event;
            XNextEvent(dpy(), &event);
            if (wanted(event)) {
                return event;
            }
            handle(event);
        }
        const qint64 remaining = deadline.remainingTime();
        if (remaining == 0) {
            return std::nullopt;
        }
        pollfd descriptor{ConnectionNumber(dpy()), POLLIN, 0};
        const int ready = ::poll(&descriptor, 1, int(remaining));
        if (ready < 0 && errno != EINTR) {
            return std::nullopt;
        }
    }
}

std::optional<Property> X11Pasteboard::Private::takeProperty(Window target, Atom property)
{
    Property result;
    long offset = 0;
    for (;;) {
        const auto read =
            X11WindowProperty::read(dpy(), target, property, AnyPropertyType, offset, propertyReadUnits);
        if (!read) {
            return std::nullopt;
        }
        result.type = read->type;
        result.format = read->format;
        if (read->format == 32) {
            // Xlib hands 32-bit items out as longs; they are packed back to 32 bits.
            const auto* longs = reinterpret_cast<const long*>(read->data.get());
            for (unsigned long i = 0; i < read->count; ++i) {
                const quint32 value = quint32(longs[i]);
                result.data.append(reinterpret_cast<const char*>(&value), 4);
            }
        } else {
            result.data.append(reinterpret_cast<const char*>(read->data.get()),
                               qsizetype(read->count) * (read->format / 8));
        }
        if (read->bytesAfter == 0) {
            break;
        }
        offset = long(result.data.size() / 4);
    }
    XDeleteProperty(dpy(), target, property);
    return result;
}

std::optional<QByteArray> X11Pasteboard::Private::convert(Atom target)
{
    const Atom property = atom(QStringLiteral("MIVORA_SELECTION_%1").arg(nextConversionProperty));
    nextConversionProperty = (nextConversionProperty + 1) % conversionPropertyCount;
    const Window self = window.get();
    XDeleteProperty(dpy(), self, property);
    XConvertSelection(dpy(), clipboard, target, property, self, CurrentTime);
    XFlush(dpy());
    const std::optional<XEvent> answer = waitFor(
        [&](const XEvent& event) {
            return event.type == SelectionNotify && event.xselection.requestor == self &&
                   event.xselection.selection == clipboard && event.xselection.target == target &&
                   (event.xselection.property == property || event.xselection.property == None);
        },
        QDeadlineTimer(readTimeout));
    if (!answer || answer->xselection.property == None) {
        return std::nullopt;
    }
    std::optional<Property> value = takeProperty(self, property);
    if (!value) {
        return std::nullopt;
    }
    if (value->type == incr) {
        return receiveIncrementally(property);
    }
    return std::move(value->data);
}

std::optional<QByteArray> X11Pasteboard::Private::receiveIncrementally(Atom property)
{
    // The owner writes a piece each time we delete the property; a piece of length zero ends the value.
    // takeProperty has deleted the INCR announcement, which asks for the first piece.
    XFlush(dpy());
    QByteArray result;
    const Window self = window.get();
    for (;;) {
        const std::optional<XEvent> piece = waitFor(
            [&](const XEvent& event) {
                return event.type == PropertyNotify && event.xproperty.window == self &&
                       event.xproperty.atom == property && event.xproperty.state == PropertyNewValue;
            },
            QDeadlineTimer(readTimeout));
        if (!piece) {
            return std::nullopt;
        }
        std::optional<Property> value = takeProperty(self, property);
        XFlush(dpy());
        if (!value) {
            continue;
        }
        if (value->data.isEmpty()) {
            return result;
        }
        result.append(value->data);
    }
}

std::optional<QByteArray> X11Pasteboard::Private::read(const QString& type)
{
    const Window owner = currentOwner();
    if (owner == None) {
        return std::nullopt;
    }
    if (owner == window.get()) {
        if (owned) {
            for (const SavedPasteboardValue& value : owned->values) {
                if (value.type == type) {
                    return value.data;
                }
            }
        }
        return std::nullopt;
    }
    return convert(atom(type));
}

std::optional<QStringList> X11Pasteboard::Private::readTypes()
{
    const Window owner = currentOwner();
    if (owner == None) {
        return std::nullopt;
    }
    if (owner == window.get()) {
        QStringList names;
        for (const SavedPasteboardValue& value : owned ? owned->values : QList<SavedPasteboardValue>()) {
            names.append(value.type);
        }
        return names;
    }
    const std::optional<QByteArray> packed = convert(targets);
    if (!packed) {
        return QStringList();
    }
    return atomNamesOf(*packed);
}

void X11Pasteboard::Private::own(QList<SavedPasteboardValue> values)
{
    // Changes announced before this one must not be taken for news about the new contents.
    dispatchPending();
    transfers.clear();
    owned = OwnedContents{std::move(values), CurrentTime};
    XSetSelectionOwner(dpy(), clipboard, window.get(), CurrentTime);
    // After the sync, the server's notice of our own change is queued, so the change count has moved when
    // this returns.
    XSync(dpy(), False);
    dispatchPending();
    if (currentOwner() != window.get()) {
        owned.reset();
    }
}

void X11Pasteboard::Private::disown()
{
    dispatchPending();
    owned.reset();
    transfers.clear();
    XSetSelectionOwner(dpy(), clipboard, None, CurrentTime);
    XSync(dpy(), False);
    dispatchPending();
}

void X11Pasteboard::Private::serve(const XSelectionRequestEvent& request)
{
    // Obsolete clients name no property; the target's name is used then.
    const Atom property = request.property == None ? request.target : request.property;
    XEvent reply{};
    reply.xselection.type = SelectionNotify;
    reply.xselection.display = request.display;
    reply.xselection.requestor = request.requestor;
    reply.xselection.selection = request.selection;
    reply.xselection.target = request.target;
    reply.xselection.property = None;
    reply.xselection.time = request.time;

    // Names and atoms first: they open traps of their own, and traps don't nest.
    const QString type = atomName(request.target);
    std::vector<long> list{long(targets), long(timestamp)};
    for (const SavedPasteboardValue& value : owned ? owned->values : QList<SavedPasteboardValue>()) {
        list.push_back(long(atom(value.type)));
    }
    // The requestor may be gone by now; its errors must not reach the process-wide handler.
    X11ErrorTrap trap(dpy());
    if (owned && request.selection == clipboard) {
        if (request.target == targets) {
            XChangeProperty(dpy(), request.requestor, property, XA_ATOM, 32, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(list.data()), int(list.size()));
            reply.xselection.property = property;
        } else if (request.target == timestamp) {
            const long time = long(owned->time);
            XChangeProperty(dpy(), request.requestor, property, XA_INTEGER, 32, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(&time), 1);
            reply.xselection.property = property;
        } else {
            for (const SavedPasteboardValue& value : owned->values) {
                if (value.type != type) {
                    continue;
                }
                if (value.data.size() > chunkSize) {
                    XSelectInput(dpy(), request.requestor, PropertyChangeMask | StructureNotifyMask);
                    const long size = long(value.data.size());
                    XChangeProperty(dpy(), request.requestor, property, incr, 32, PropModeReplace,
                                    reinterpret_cast<const unsigned char*>(&size), 1);
                    transfers.push_back({request.requestor, property, request.target, value.data});
                } else {
                    XChangeProperty(dpy(), request.requestor, property, request.target, 8, PropModeReplace,
                                    reinterpret_cast<const unsigned char*>(value.data.constData()),
                                    int(value.data.size()));
                }
                reply.xselection.property = property;
                break;
            }
        }
    }
    XSendEvent(dpy(), request.requestor, False, NoEventMask, &reply);
    trap.sync();
}

void X11Pasteboard::Private::continueTransfer(const XPropertyEvent& event)
{
    const auto transfer =
        std::find_if(transfers.begin(), transfers.end(), [&](const OutgoingTransfer& candidate) {
            return candidate.requestor == event.window && candidate.property == event.atom;
        });
    if (transfer == transfers.end()) {
        return;
    }
    X11ErrorTrap trap(dpy());
    const qsizetype length = std::min(chunkSize, transfer->data.size() - transfer->offset);
    XChangeProperty(dpy(), transfer->requestor, transfer->property, transfer->type, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(transfer->data.constData() + transfer->offset),
                    int(length));
    transfer->offset += length;
    // The piece of length zero that ends the transfer has just been written.
    if (length == 0) {
        XSelectInput(dpy(), transfer->requestor, NoEventMask);
        transfers.erase(transfer);
    }
    trap.sync();
}

void X11Pasteboard::Private::handOverToManager()
{
    const Atom manager = atom(QStringLiteral("CLIPBOARD_MANAGER"));
    if (!owned || owned->values.isEmpty() || currentOwner() != window.get() ||
        XGetSelectionOwner(dpy(), manager) == None) {
        return;
    }
    const Atom saveTargets = atom(QStringLiteral("SAVE_TARGETS"));
    const Atom property = atom(QStringLiteral("MIVORA_SAVE_TARGETS"));
    XConvertSelection(dpy(), manager, saveTargets, property, window.get(), CurrentTime);
    XFlush(dpy());
    // The manager now reads every target from us; our requests are served while we wait for its answer.
    waitFor(
        [&](const XEvent& event) {
            return event.type == SelectionNotify && event.xselection.selection == manager;
        },
        QDeadlineTimer(readTimeout * 3));
}

X11Pasteboard::X11Pasteboard(const QByteArray& displayName) : d(std::make_unique<Private>())
{
    d->display.emplace(displayName);
    int errorBase = 0;
    if (!*d->display || !XFixesQueryExtension(d->dpy(), &d->xfixesEventBase, &errorBase)) {
        d->display.reset();
        return;
    }
    Display* display = d->dpy();
    XSetWindowAttributes attributes{};
    attributes.event_mask = PropertyChangeMask;
    d->window = WindowHandle(display, XCreateWindow(display, DefaultRootWindow(display), -10, -10, 1, 1, 0,
                                                    CopyFromParent, InputOnly, CopyFromParent, CWEventMask,
                                                    &attributes));
    d->clipboard = d->atom(QStringLiteral("CLIPBOARD"));
    d->targets = d->atom(QStringLiteral("TARGETS"));
    d->timestamp = d->atom(QStringLiteral("TIMESTAMP"));
    d->incr = d->atom(QStringLiteral("INCR"));
    // Values larger than one request can carry, less room for the request's header, go incrementally.
    const long maxRequestBytes = std::max(XExtendedMaxRequestSize(display), XMaxRequestSize(display)) * 4;
    d->chunkSize = std::min<qsizetype>(256 * 1024, maxRequestBytes - 1024);
    XFixesSelectSelectionInput(display, d->window.get(), d->clipboard,
                               XFixesSetSelectionOwnerNotifyMask | XFixesSelectionWindowDestroyNotifyMask |
                                   XFixesSelectionClientCloseNotifyMask);
    XSync(display, False);

    d->notifier = std::make_unique<QSocketNotifier>(ConnectionNumber(display), QSocketNotifier::Read);
    Private* state = d.get();
    QObject::connect(state->notifier.get(), &QSocketNotifier::activated, state->notifier.get(),
                     [state] { state->dispatchPending(); });
    // Xlib may have read events into its queue while answering a call; the socket then stays quiet, so
    // the queue is also drained whenever the loop is about to sleep.
    if (auto* dispatcher = QAbstractEventDispatcher::instance()) {
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, state->notifier.get(), [state] {
            if (XEventsQueued(state->dpy(), QueuedAlready) > 0) {
                state->dispatchPending();
            }
        });
    }
}

X11Pasteboard::~X11Pasteboard()
{
    if (!d->display) {
        return;
    }
    // Dropping the notifier also drops the connections that use it as their context.
    d->notifier.reset();
    d->handOverToManager();
}

bool X11Pasteboard::isConnected() const
{
    return d->display.has_value();
}

bool X11Pasteboard::ownsClipboard()
{
    return isConnected() && d->owned && d->currentOwner() == d->window.get();
}

qint64 X11Pasteboard::changeCount()
{
    if (isConnected()) {
        d->dispatchPending();
    }
    return d->changeCount;
}

std::optional<QStringList> X11Pasteboard::types()
{
    if (!isConnected()) {
        return std::nullopt;
    }
    return d->readTypes();
}

std::optional<QByteArray> X11Pasteboard::data(const QString& type)
{
    if (!isConnected()) {
        return std::nullopt;
    }
    return d->read(type);
}

std::optional<QString> X11Pasteboard::string()
{
    if (!isConnected()) {
        return std::nullopt;
    }
    if (const std::optional<QByteArray> utf8 = d->read(QStringLiteral("UTF8_STRING"))) {
        return QString::fromUtf8(*utf8);
    }
    if (const std::optional<QByteArray> latin1 = d->read(QStringLiteral("STRING"))) {
        return QString::fromLatin1(*latin1);
    }
    return std::nullopt;
}

PasteboardSnapshot X11Pasteboard::snapshot()
{
    const std::optional<QStringList> names = types();
    if (!names) {
        return {};
    }
    // The X clipboard holds one item.
    SavedPasteboardItem item;
    for (const QString& type : *names) {
        if (metaTargets().contains(type)) {
            continue;
        }
        if (std::optional<QByteArray> bytes = data(type)) {
            item.values.append({type, std::move(*bytes)});
        }
    }
    return PasteboardSnapshot{{item}};
}

void X11Pasteboard::restore(const PasteboardSnapshot& snapshot)
{
    if (!isConnected()) {
        return;
    }
    // The X clipboard holds one item: the saved items are merged, and the first value of a type wins.
    QList<SavedPasteboardValue> values;
    QStringList seen;
    for (const SavedPasteboardItem& item : snapshot.items) {
        for (const SavedPasteboardValue& value : item.values) {
            if (!seen.contains(value.type) && !metaTargets().contains(value.type)) {
                seen.append(value.type);
                values.append(value);
            }
        }
    }
    if (snapshot.items.isEmpty()) {
        d->disown();
    } else {
        d->own(std::move(values));
    }
}

void X11Pasteboard::clear()
{
    if (isConnected()) {
        d->disown();
    }
}

void X11Pasteboard::writeString(const QString& text)
{
    if (!isConnected()) {
        return;
    }
    const QByteArray utf8 = text.toUtf8();
    d->own({
        {QStringLiteral("UTF8_STRING"), utf8},
        {QStringLiteral("text/plain;charset=utf-8"), utf8},
        {QStringLiteral("STRING"), text.toLatin1()},
    });
}
