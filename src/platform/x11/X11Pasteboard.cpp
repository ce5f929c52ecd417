#include "platform/x11/X11Pasteboard.h"

#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11SelectionData.h"
#include "platform/x11/X11WindowProperty.h"

#include <QDeadlineTimer>
#include <QHash>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <algorithm>
#include <cerrno>
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
            XFlush(m_display);
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
// lands where a newer one is expected, and reads running side by side never share one.
constexpr int conversionPropertyCount = 8;
// Another client's answer larger than this is refused rather than held: more than any real copy, less than
// what would take the program's memory down.
constexpr qsizetype maxValueBytes = qsizetype(256) * 1024 * 1024;

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

// Whether every character fits the Latin-1 encoding that the STRING target is defined in.
bool fitsLatin1(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xff; });
}

} // namespace

struct X11Pasteboard::Private {
    explicit Private(X11EventPump& eventPump) : pump(eventPump) {}

    X11EventPump& pump;
    // Null when there is no server or no XFixes.
    Display* display = nullptr;
    WindowHandle window;
    int xfixesEventBase = 0;
    qint64 changeCount = 0;
    std::optional<OwnedContents> owned;
    std::list<OutgoingTransfer> transfers;
    QHash<QString, Atom> atoms;
    QHash<Atom, QString> atomNames;
    int nextConversionProperty = 0;
    qsizetype chunkSize = 0;

    Atom clipboard = None;
    Atom targets = None;
    Atom timestamp = None;
    Atom incr = None;

    // Reads that resume after this object is gone see it expired and give nothing.
    std::shared_ptr<int> lifetime = std::make_shared<int>(0);
    // Last, so no event reaches a half-destroyed object.
    X11EventPump::Subscription events;

    Atom atom(const QString& name);
    QString atomName(Atom value);
    QStringList atomNamesOf(const QList<quint32>& values);

    void handle(const XEvent& event);

    Window currentOwner() const { return XGetSelectionOwner(display, clipboard); }
    void takeProperty(Window target, Atom property, X11SelectionData& answer);
    QCoro::Task<X11SelectionData> convert(Atom target, Atom selection);
    QCoro::Task<> receiveIncrementally(Atom property, X11SelectionData& answer);
    QCoro::Task<std::optional<QByteArray>> read(QString type, Atom selection);
    QCoro::Task<std::optional<QStringList>> readTypes();
    QCoro::Task<std::optional<QString>> readString(Atom selection);
    QCoro::Task<PasteboardSnapshot> readSnapshot();

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
    const Atom value = XInternAtom(display, name.toUtf8().constData(), False);
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
    X11ErrorTrap trap(display);
    const XData name(reinterpret_cast<unsigned char*>(XGetAtomName(display, value)));
    if (trap.sync() != 0 || !name) {
        return {};
    }
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(name.get()));
    atomNames.insert(value, text);
    atoms.insert(text, value);
    return text;
}

QStringList X11Pasteboard::Private::atomNamesOf(const QList<quint32>& values)
{
    QStringList names;
    for (const quint32 value : values) {
        const QString name = atomName(value);
        if (!name.isEmpty()) {
            names.append(name);
        }
    }
    return names;
}

void X11Pasteboard::Private::handle(const XEvent& event)
{
    // The connection is shared: only events about our window and our transfers are ours.
    if (event.type == xfixesEventBase + XFixesSelectionNotify) {
        const auto& notify = reinterpret_cast<const XFixesSelectionNotifyEvent&>(event);
        if (notify.window == window.get() && notify.selection == clipboard) {
            ++changeCount;
            if (owned && notify.owner == window.get()) {
                owned->time = notify.selection_timestamp;
            }
        }
        return;
    }
    switch (event.type) {
    case SelectionRequest:
        if (event.xselectionrequest.owner == window.get()) {
            serve(event.xselectionrequest);
        }
        break;
    case SelectionClear:
        // A clear can be stale when we took the clipboard back meanwhile; the server knows who owns it now.
        if (event.xselectionclear.window == window.get() && event.xselectionclear.selection == clipboard &&
            currentOwner() != window.get()) {
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

void X11Pasteboard::Private::takeProperty(Window target, Atom property, X11SelectionData& answer)
{
    do {
        const auto read = X11WindowProperty::read(display, target, property, AnyPropertyType,
                                                  answer.readOffset(), propertyReadUnits);
        if (!read) {
            answer.fail();
            return;
        }
        answer.addRead(read->type, read->format, read->data.get(), read->count, read->bytesAfter != 0);
    } while (!answer.propertyDone());
    XDeleteProperty(display, target, property);
}

QCoro::Task<X11SelectionData> X11Pasteboard::Private::convert(Atom target, Atom selection)
{
    const std::weak_ptr<int> alive = lifetime;
    X11SelectionData answer(incr, maxValueBytes);
    const Atom property = atom(QStringLiteral("MIVORA_SELECTION_%1").arg(nextConversionProperty));
    nextConversionProperty = (nextConversionProperty + 1) % conversionPropertyCount;
    const Window self = window.get();
    XDeleteProperty(display, self, property);
    XConvertSelection(display, selection, target, property, self, CurrentTime);
    XFlush(display);
    XEvent event{};
    const bool answered = co_await pump.waitFor(
        [=](const XEvent& candidate) {
            return candidate.type == SelectionNotify && candidate.xselection.requestor == self &&
                   candidate.xselection.selection == selection && candidate.xselection.target == target &&
                   (candidate.xselection.property == property || candidate.xselection.property == None);
        },
        readTimeout, &event);
    if (!answered || alive.expired() || event.xselection.property == None) {
        answer.fail();
        co_return answer;
    }
    takeProperty(self, property, answer);
    if (answer.state() == X11SelectionData::State::awaitingPiece) {
        co_await receiveIncrementally(property, answer);
    }
    co_return answer;
}

QCoro::Task<> X11Pasteboard::Private::receiveIncrementally(Atom property, X11SelectionData& answer)
{
    // The owner writes a piece each time we delete the property; a piece of length zero ends the value.
    // takeProperty has deleted the INCR announcement, which asks for the first piece. A piece that does not
    // come in time, or cannot be read, ends the read with nothing: the caller decides what to do then.
    const std::weak_ptr<int> alive = lifetime;
    XFlush(display);
    const Window self = window.get();
    while (answer.state() == X11SelectionData::State::awaitingPiece) {
        const bool arrived = co_await pump.waitFor(
            [=](const XEvent& event) {
                return event.type == PropertyNotify && event.xproperty.window == self &&
                       event.xproperty.atom == property && event.xproperty.state == PropertyNewValue;
            },
            readTimeout);
        if (!arrived || alive.expired()) {
            answer.fail();
            co_return;
        }
        takeProperty(self, property, answer);
        XFlush(display);
    }
}

QCoro::Task<std::optional<QByteArray>> X11Pasteboard::Private::read(QString type, Atom selection)
{
    const Window owner = XGetSelectionOwner(display, selection);
    if (owner == None) {
        co_return std::nullopt;
    }
    // Only the clipboard is ever served by this object; any other selection is some other client's.
    if (owner == window.get() && selection == clipboard) {
        if (owned) {
            for (const SavedPasteboardValue& value : owned->values) {
                if (value.type == type) {
                    co_return value.data;
                }
            }
        }
        co_return std::nullopt;
    }
    X11SelectionData answer = co_await convert(atom(type), selection);
    if (answer.state() != X11SelectionData::State::complete) {
        co_return std::nullopt;
    }
    co_return answer.takeBytes();
}

QCoro::Task<std::optional<QStringList>> X11Pasteboard::Private::readTypes()
{
    const std::weak_ptr<int> alive = lifetime;
    const Window owner = currentOwner();
    if (owner == None) {
        co_return std::nullopt;
    }
    if (owner == window.get()) {
        QStringList names;
        for (const SavedPasteboardValue& value : owned ? owned->values : QList<SavedPasteboardValue>()) {
            names.append(value.type);
        }
        co_return names;
    }
    const X11SelectionData answer = co_await convert(targets, clipboard);
    if (alive.expired()) {
        co_return QStringList();
    }
    co_return atomNamesOf(answer.distinctItems());
}

QCoro::Task<std::optional<QString>> X11Pasteboard::Private::readString(Atom selection)
{
    const std::weak_ptr<int> alive = lifetime;
    if (const std::optional<QByteArray> utf8 = co_await read(QStringLiteral("UTF8_STRING"), selection)) {
        co_return QString::fromUtf8(*utf8);
    }
    if (alive.expired()) {
        co_return std::nullopt;
    }
    if (const std::optional<QByteArray> latin1 = co_await read(QStringLiteral("STRING"), selection)) {
        co_return QString::fromLatin1(*latin1);
    }
    co_return std::nullopt;
}

QCoro::Task<PasteboardSnapshot> X11Pasteboard::Private::readSnapshot()
{
    const std::weak_ptr<int> alive = lifetime;
    const std::optional<QStringList> names = co_await readTypes();
    if (!names) {
        co_return PasteboardSnapshot{};
    }
    // The X clipboard holds one item.
    SavedPasteboardItem item;
    for (const QString& type : *names) {
        if (alive.expired()) {
            co_return PasteboardSnapshot{};
        }
        if (metaTargets().contains(type)) {
            continue;
        }
        if (std::optional<QByteArray> bytes = co_await read(type, clipboard)) {
            item.values.append({type, std::move(*bytes)});
        }
    }
    co_return PasteboardSnapshot{{item}};
}

void X11Pasteboard::Private::own(QList<SavedPasteboardValue> values)
{
    // Changes announced before this one must not be taken for news about the new contents.
    pump.dispatchPending();
    transfers.clear();
    owned = OwnedContents{std::move(values), CurrentTime};
    XSetSelectionOwner(display, clipboard, window.get(), CurrentTime);
    // After the sync, the server's notice of our own change is queued, so the change count has moved when
    // this returns.
    XSync(display, False);
    pump.dispatchPending();
    if (currentOwner() != window.get()) {
        owned.reset();
    }
}

void X11Pasteboard::Private::disown()
{
    pump.dispatchPending();
    owned.reset();
    transfers.clear();
    XSetSelectionOwner(display, clipboard, None, CurrentTime);
    XSync(display, False);
    pump.dispatchPending();
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

    // Names and atoms first, so the trap below covers only the requests to the requestor.
    const QString type = atomName(request.target);
    std::vector<long> list{long(targets), long(timestamp)};
    for (const SavedPasteboardValue& value : owned ? owned->values : QList<SavedPasteboardValue>()) {
        list.push_back(long(atom(value.type)));
    }
    // The requestor may be gone by now; its errors must not reach the process-wide handler.
    X11ErrorTrap trap(display);
    if (owned && request.selection == clipboard) {
        if (request.target == targets) {
            XChangeProperty(display, request.requestor, property, XA_ATOM, 32, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(list.data()), int(list.size()));
            reply.xselection.property = property;
        } else if (request.target == timestamp) {
            const long time = long(owned->time);
            XChangeProperty(display, request.requestor, property, XA_INTEGER, 32, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(&time), 1);
            reply.xselection.property = property;
        } else {
            for (const SavedPasteboardValue& value : owned->values) {
                if (value.type != type) {
                    continue;
                }
                if (value.data.size() > chunkSize) {
                    XSelectInput(display, request.requestor, PropertyChangeMask | StructureNotifyMask);
                    const long size = long(value.data.size());
                    XChangeProperty(display, request.requestor, property, incr, 32, PropModeReplace,
                                    reinterpret_cast<const unsigned char*>(&size), 1);
                    transfers.push_back({request.requestor, property, request.target, value.data});
                } else {
                    XChangeProperty(display, request.requestor, property, request.target, 8, PropModeReplace,
                                    reinterpret_cast<const unsigned char*>(value.data.constData()),
                                    int(value.data.size()));
                }
                reply.xselection.property = property;
                break;
            }
        }
    }
    XSendEvent(display, request.requestor, False, NoEventMask, &reply);
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
    X11ErrorTrap trap(display);
    const qsizetype length = std::min(chunkSize, transfer->data.size() - transfer->offset);
    XChangeProperty(display, transfer->requestor, transfer->property, transfer->type, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(transfer->data.constData() + transfer->offset),
                    int(length));
    transfer->offset += length;
    // The piece of length zero that ends the transfer has just been written.
    if (length == 0) {
        XSelectInput(display, transfer->requestor, NoEventMask);
        transfers.erase(transfer);
    }
    trap.sync();
}

void X11Pasteboard::Private::handOverToManager()
{
    const Atom manager = atom(QStringLiteral("CLIPBOARD_MANAGER"));
    if (!owned || owned->values.isEmpty() || currentOwner() != window.get() ||
        XGetSelectionOwner(display, manager) == None) {
        return;
    }
    const Atom saveTargets = atom(QStringLiteral("SAVE_TARGETS"));
    const Atom property = atom(QStringLiteral("MIVORA_SAVE_TARGETS"));
    const Window self = window.get();
    bool answered = false;
    const X11EventPump::Subscription listening = pump.subscribe([&](const XEvent& event) {
        answered = answered || (event.type == SelectionNotify && event.xselection.requestor == self &&
                                event.xselection.selection == manager);
    });
    XConvertSelection(display, manager, saveTargets, property, self, CurrentTime);
    XFlush(display);
    // The manager now reads every target from us, served by our own listener while we wait for its answer.
    // This runs at exit, when no event loop is left to return to, so it waits on the connection itself.
    const QDeadlineTimer deadline(handOverTimeout);
    for (;;) {
        pump.dispatchPending();
        if (answered || deadline.hasExpired()) {
            return;
        }
        pollfd descriptor{ConnectionNumber(display), POLLIN, 0};
        const int ready = ::poll(&descriptor, 1, int(std::max<qint64>(deadline.remainingTime(), 1)));
        if (ready < 0 && errno != EINTR) {
            return;
        }
    }
}

X11Pasteboard::X11Pasteboard(X11EventPump& pump) : d(std::make_unique<Private>(pump))
{
    Display* display = pump.display();
    int errorBase = 0;
    if (display == nullptr || !XFixesQueryExtension(display, &d->xfixesEventBase, &errorBase)) {
        return;
    }
    d->display = display;
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
    const qsizetype maxRequestUnits =
        std::max<qsizetype>(XExtendedMaxRequestSize(display), XMaxRequestSize(display));
    const qsizetype maxRequestBytes = maxRequestUnits * 4;
    d->chunkSize = std::min<qsizetype>(qsizetype(256) * 1024, maxRequestBytes - 1024);
    XFixesSelectSelectionInput(display, d->window.get(), d->clipboard,
                               XFixesSetSelectionOwnerNotifyMask | XFixesSelectionWindowDestroyNotifyMask |
                                   XFixesSelectionClientCloseNotifyMask);
    XSync(display, False);
    Private* state = d.get();
    d->events = pump.subscribe([state](const XEvent& event) { state->handle(event); });
}

X11Pasteboard::~X11Pasteboard()
{
    if (d->display) {
        d->handOverToManager();
    }
}

bool X11Pasteboard::isConnected() const
{
    return d->display != nullptr;
}

bool X11Pasteboard::ownsClipboard()
{
    return isConnected() && d->owned && d->currentOwner() == d->window.get();
}

qint64 X11Pasteboard::changeCount()
{
    if (isConnected()) {
        d->pump.dispatchPending();
    }
    return d->changeCount;
}

QCoro::Task<std::optional<QStringList>> X11Pasteboard::types()
{
    if (!isConnected()) {
        co_return std::nullopt;
    }
    co_return co_await d->readTypes();
}

QCoro::Task<std::optional<QByteArray>> X11Pasteboard::data(QString type)
{
    if (!isConnected()) {
        co_return std::nullopt;
    }
    co_return co_await d->read(std::move(type), d->clipboard);
}

QCoro::Task<std::optional<QString>> X11Pasteboard::string()
{
    if (!isConnected()) {
        co_return std::nullopt;
    }
    co_return co_await d->readString(d->clipboard);
}

unsigned long X11Pasteboard::primaryOwner() const
{
    return isConnected() ? XGetSelectionOwner(d->display, XA_PRIMARY) : None;
}

QCoro::Task<std::optional<QString>> X11Pasteboard::primaryString()
{
    if (!isConnected()) {
        co_return std::nullopt;
    }
    co_return co_await d->readString(XA_PRIMARY);
}

QCoro::Task<PasteboardSnapshot> X11Pasteboard::snapshot()
{
    if (!isConnected()) {
        co_return PasteboardSnapshot{};
    }
    co_return co_await d->readSnapshot();
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
    QList<SavedPasteboardValue> values{
        {QStringLiteral("UTF8_STRING"), utf8},
        {QStringLiteral("text/plain;charset=utf-8"), utf8},
    };
    // STRING is Latin-1 by definition; a text it cannot hold would reach older clients as question marks,
    // so they get UTF8_STRING or nothing.
    if (fitsLatin1(text)) {
        values.append({QStringLiteral("STRING"), text.toLatin1()});
    }
    d->own(std::move(values));
}
