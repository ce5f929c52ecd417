#include "platform/x11/X11RandrDisplays.h"

#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11WindowProperty.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>
#include <X11/extensions/dpms.h>
#include <algorithm>
#include <array>
#include <map>

namespace {
struct ResourcesDeleter {
    void operator()(XRRScreenResources* resources) const { XRRFreeScreenResources(resources); }
};
struct OutputDeleter {
    void operator()(XRROutputInfo* output) const { XRRFreeOutputInfo(output); }
};
using OutputInfo = std::unique_ptr<XRROutputInfo, OutputDeleter>;
struct CrtcDeleter {
    void operator()(XRRCrtcInfo* crtc) const { XRRFreeCrtcInfo(crtc); }
};

bool isSideways(Rotation rotation)
{
    return (rotation & (RR_Rotate_90 | RR_Rotate_270)) != 0;
}

constexpr long maxRandrOutput = 0x1FFFFFFF;
} // namespace

// One reading of the server's outputs and CRTCs, freed as a whole.
struct X11RandrDisplays::Snapshot {
    std::unique_ptr<XRRScreenResources, ResourcesDeleter> resources;
    std::map<RROutput, std::unique_ptr<XRROutputInfo, OutputDeleter>> outputs;
    std::map<RRCrtc, std::unique_ptr<XRRCrtcInfo, CrtcDeleter>> crtcs;

    const XRROutputInfo* output(DisplayIdentifier display) const
    {
        const auto found = outputs.find(RROutput(display));
        return found == outputs.end() ? nullptr : found->second.get();
    }
    const XRRCrtcInfo* crtc(RRCrtc crtc) const
    {
        const auto found = crtcs.find(crtc);
        return found == crtcs.end() ? nullptr : found->second.get();
    }
    const XRRModeInfo* mode(RRMode mode) const
    {
        for (int i = 0; i < resources->nmode; ++i) {
            if (resources->modes[i].id == mode) {
                return &resources->modes[i];
            }
        }
        return nullptr;
    }
    // The rectangle that the lit CRTCs cover: left, top, right, bottom; all 0 when none is lit.
    std::array<int, 4> litBounds() const
    {
        std::optional<std::array<int, 4>> bounds;
        for (const auto& [id, info] : crtcs) {
            if (info->mode == None) {
                continue;
            }
            const std::array<int, 4> own{info->x, info->y, info->x + int(info->width),
                                         info->y + int(info->height)};
            bounds = bounds
                         ? std::array<int, 4>{std::min((*bounds)[0], own[0]), std::min((*bounds)[1], own[1]),
                                              std::max((*bounds)[2], own[2]), std::max((*bounds)[3], own[3])}
                         : own;
        }
        return bounds.value_or(std::array<int, 4>{0, 0, 0, 0});
    }
};

X11RandrDisplays::X11RandrDisplays(X11EventPump& pump) : m_display(pump.display())
{
    if (m_display == nullptr) {
        return;
    }
    m_root = DefaultRootWindow(m_display);
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    // Reading the current state without probing the connectors takes 1.3.
    m_hasRandr = XRRQueryExtension(m_display, &m_eventBase, &errorBase) &&
                 XRRQueryVersion(m_display, &major, &minor) && (major > 1 || (major == 1 && minor >= 3));
    if (!m_hasRandr) {
        return;
    }
    XRRSelectInput(m_display, m_root, RROutputChangeNotifyMask | RRScreenChangeNotifyMask);
    XFlush(m_display);
    m_events = pump.subscribe([this](const XEvent& event) { handleEvent(event); });
}

X11RandrDisplays::~X11RandrDisplays() = default;

void X11RandrDisplays::handleEvent(const XEvent& event)
{
    if (event.type == m_eventBase + RRScreenChangeNotify) {
        XRRUpdateConfiguration(const_cast<XEvent*>(&event));
        return;
    }
    if (event.type != m_eventBase + RRNotify) {
        return;
    }
    const auto& notify = reinterpret_cast<const XRRNotifyEvent&>(event);
    if (notify.subtype != RRNotify_OutputChange) {
        return;
    }
    const auto& change = reinterpret_cast<const XRROutputChangeNotifyEvent&>(event);
    // An output counts as there while it is connected and lit; any other state is a removal.
    const bool lit = change.connection == RR_Connected && change.crtc != None;
    m_changes.notify(DisplayChange{DisplayIdentifier(change.output), !lit, lit, false});
}

std::optional<X11RandrDisplays::Snapshot> X11RandrDisplays::snapshot()
{
    if (!m_hasRandr) {
        return std::nullopt;
    }
    X11ErrorTrap trap(m_display);
    Snapshot snapshot;
    snapshot.resources.reset(XRRGetScreenResourcesCurrent(m_display, m_root));
    if (!snapshot.resources) {
        return std::nullopt;
    }
    XRRScreenResources* resources = snapshot.resources.get();
    for (int i = 0; i < resources->noutput; ++i) {
        if (XRROutputInfo* info = XRRGetOutputInfo(m_display, resources, resources->outputs[i])) {
            snapshot.outputs[resources->outputs[i]].reset(info);
        }
    }
    for (int i = 0; i < resources->ncrtc; ++i) {
        if (XRRCrtcInfo* info = XRRGetCrtcInfo(m_display, resources, resources->crtcs[i])) {
            snapshot.crtcs[resources->crtcs[i]].reset(info);
        }
    }
    // Outputs that vanished while being read are simply not there.
    trap.sync();
    return snapshot;
}

QList<DisplayIdentifier> X11RandrDisplays::activeDisplays()
{
    QList<DisplayIdentifier> result;
    if (const std::optional<Snapshot> now = snapshot()) {
        for (int i = 0; i < now->resources->noutput; ++i) {
            const XRROutputInfo* info = now->output(now->resources->outputs[i]);
            if (info && info->crtc != None) {
                result.append(DisplayIdentifier(now->resources->outputs[i]));
            }
        }
    }
    return result;
}

namespace {
// One output's state, or null for an id that names none. Two round trips.
OutputInfo readOutput(Display* display, Window root, DisplayIdentifier output)
{
    if (output > maxRandrOutput) {
        return nullptr;
    }
    X11ErrorTrap trap(display);
    const std::unique_ptr<XRRScreenResources, ResourcesDeleter> resources(
        XRRGetScreenResourcesCurrent(display, root));
    OutputInfo info(resources ? XRRGetOutputInfo(display, resources.get(), RROutput(output)) : nullptr);
    // An id that names no output is answered with an error, and no information.
    if (trap.sync() != 0) {
        info.reset();
    }
    return info;
}
} // namespace

bool X11RandrDisplays::isPanelConnector(const std::optional<QByteArray>& connectorType,
                                        const QByteArray& outputName)
{
    if (connectorType) {
        return *connectorType == "Panel";
    }
    // The name prefixes that kernel drivers give the connectors of a computer's own panel.
    return outputName.startsWith("eDP") || outputName.startsWith("LVDS") || outputName.startsWith("DSI");
}

bool X11RandrDisplays::isBuiltIn(DisplayIdentifier display)
{
    const OutputInfo info = m_hasRandr ? readOutput(m_display, m_root, display) : nullptr;
    if (!info) {
        return false;
    }
    const Atom connectorType = XInternAtom(m_display, "ConnectorType", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char* data = nullptr;
    X11ErrorTrap trap(m_display);
    XRRGetOutputProperty(m_display, RROutput(display), connectorType, 0, 1, False, False, AnyPropertyType,
                         &type, &format, &count, &after, &data);
    const XPtr<unsigned char> owned(data);
    trap.sync();
    std::optional<QByteArray> typeName;
    if (type == XA_ATOM && format == 32 && count == 1 && owned) {
        const XPtr<char> name(XGetAtomName(m_display, *reinterpret_cast<const Atom*>(owned.get())));
        typeName = QByteArray(name ? name.get() : "");
    } else if (type != None) {
        // Present but unreadable: it names no panel.
        typeName = QByteArray();
    }
    return isPanelConnector(typeName, QByteArray(info->name));
}

bool X11RandrDisplays::isOnline(DisplayIdentifier display)
{
    const OutputInfo info = m_hasRandr ? readOutput(m_display, m_root, display) : nullptr;
    return info && info->connection == RR_Connected;
}

bool X11RandrDisplays::isAsleep(DisplayIdentifier display)
{
    if (!isOnline(display)) {
        return false;
    }
    // Power saving is one state for every monitor of the server.
    int eventBase = 0;
    int errorBase = 0;
    CARD16 level = DPMSModeOn;
    BOOL enabled = False;
    return DPMSQueryExtension(m_display, &eventBase, &errorBase) && DPMSInfo(m_display, &level, &enabled) &&
           enabled && level != DPMSModeOn;
}

bool X11RandrDisplays::isInMirrorSet(DisplayIdentifier display)
{
    const std::optional<Snapshot> now = snapshot();
    const XRROutputInfo* info = now ? now->output(display) : nullptr;
    const XRRCrtcInfo* own = info ? now->crtc(info->crtc) : nullptr;
    if (!own) {
        return false;
    }
    if (own->noutput > 1) {
        return true;
    }
    // Another CRTC showing the same rectangle shows the same picture.
    return std::any_of(now->crtcs.begin(), now->crtcs.end(), [&](const auto& entry) {
        const XRRCrtcInfo& other = *entry.second;
        return entry.first != info->crtc && other.mode != None && other.x == own->x && other.y == own->y &&
               other.width == own->width && other.height == own->height;
    });
}

QList<DisplayIdentifier> X11RandrDisplays::switchedOffBuiltInDisplays()
{
    QList<DisplayIdentifier> off;
    if (const std::optional<Snapshot> now = snapshot()) {
        for (const auto& [output, info] : now->outputs) {
            if (info->connection == RR_Connected && info->crtc == None &&
                isBuiltIn(DisplayIdentifier(output))) {
                off.append(DisplayIdentifier(output));
            }
        }
    }
    return off;
}

std::optional<DisplaySwitchFailure> X11RandrDisplays::setDisplayEnabled(DisplayIdentifier display,
                                                                        bool enabled)
{
    using Stage = DisplaySwitchFailure::Stage;
    if (display > maxRandrOutput) {
        return DisplaySwitchFailure{Stage::begin, BadValue};
    }
    std::optional<Snapshot> now = snapshot();
    if (!now || !now->output(display)) {
        return DisplaySwitchFailure{Stage::begin, now ? BadValue : BadImplementation};
    }
    // Other clients see the whole change or none of it.
    XGrabServer(m_display);
    X11ErrorTrap trap(m_display);
    std::optional<DisplaySwitchFailure> failure =
        enabled ? switchOn(*now, display) : switchOff(*now, display);
    const int error = trap.sync();
    XUngrabServer(m_display);
    XFlush(m_display);
    if (!failure && error != 0) {
        failure = DisplaySwitchFailure{Stage::complete, error};
    }
    return failure;
}

std::optional<DisplaySwitchFailure> X11RandrDisplays::switchOff(Snapshot& now, DisplayIdentifier display)
{
    const XRROutputInfo* info = now.output(display);
    const XRRCrtcInfo* crtc = now.crtc(info->crtc);
    if (!crtc) {
        return std::nullopt;
    }
    m_placements.insert(display, Placement{crtc->mode, crtc->x, crtc->y, crtc->rotation});
    // Outputs that share the CRTC stay on it.
    QList<RROutput> rest;
    for (int i = 0; i < crtc->noutput; ++i) {
        if (crtc->outputs[i] != RROutput(display)) {
            rest.append(crtc->outputs[i]);
        }
    }
    const Status status =
        rest.isEmpty() ? XRRSetCrtcConfig(m_display, now.resources.get(), info->crtc, CurrentTime, 0, 0, None,
                                          RR_Rotate_0, nullptr, 0)
                       : XRRSetCrtcConfig(m_display, now.resources.get(), info->crtc, CurrentTime, crtc->x,
                                          crtc->y, crtc->mode, crtc->rotation, rest.data(), int(rest.size()));
    if (status != RRSetConfigSuccess) {
        return DisplaySwitchFailure{DisplaySwitchFailure::Stage::configure, status};
    }
    if (const std::optional<Snapshot> after = snapshot()) {
        const auto [left, top, right, bottom] = after->litBounds();
        if (right > left && bottom > top) {
            moveLit(*after, -left, -top);
            m_placements[display].shiftX = left;
            m_placements[display].shiftY = top;
            fitScreen(right - left, bottom - top, true);
        }
    }
    return std::nullopt;
}

void X11RandrDisplays::moveLit(const Snapshot& now, int dx, int dy)
{
    if (dx == 0 && dy == 0) {
        return;
    }
    for (const auto& [id, info] : now.crtcs) {
        if (info->mode != None) {
            XRRSetCrtcConfig(m_display, now.resources.get(), id, CurrentTime, info->x + dx, info->y + dy,
                             info->mode, info->rotation, info->outputs, info->noutput);
        }
    }
}

std::optional<DisplaySwitchFailure> X11RandrDisplays::switchOn(Snapshot& now, DisplayIdentifier display)
{
    using Stage = DisplaySwitchFailure::Stage;
    const XRROutputInfo* info = now.output(display);
    if (info->crtc != None) {
        return std::nullopt;
    }
    Placement placement;
    if (const auto saved = m_placements.constFind(display); saved != m_placements.cend()) {
        placement = *saved;
    } else if (info->nmode > 0) {
        // Unknown, as after a restart of this program: the preferred mode (they come first), right of
        // what is lit.
        placement.mode = info->modes[0];
        placement.x = now.litBounds()[2];
    } else {
        return DisplaySwitchFailure{Stage::begin, BadMatch};
    }
    const XRRModeInfo* mode = now.mode(placement.mode);
    if (!mode) {
        return DisplaySwitchFailure{Stage::begin, BadMatch};
    }
    // A free CRTC that can drive the output.
    RRCrtc free = None;
    for (int i = 0; i < info->ncrtc && free == None; ++i) {
        const XRRCrtcInfo* candidate = now.crtc(info->crtcs[i]);
        if (candidate && candidate->noutput == 0) {
            free = info->crtcs[i];
        }
    }
    if (free == None) {
        return DisplaySwitchFailure{Stage::configure, RRSetConfigFailed};
    }
    const int width = int(isSideways(placement.rotation) ? mode->height : mode->width);
    const int height = int(isSideways(placement.rotation) ? mode->width : mode->height);
    const std::array<int, 4> lit = now.litBounds();
    fitScreen(std::max(placement.x + width, lit[2] + placement.shiftX),
              std::max(placement.y + height, lit[3] + placement.shiftY), false);
    moveLit(now, placement.shiftX, placement.shiftY);
    RROutput output = RROutput(display);
    const Status status = XRRSetCrtcConfig(m_display, now.resources.get(), free, CurrentTime, placement.x,
                                           placement.y, placement.mode, placement.rotation, &output, 1);
    if (status != RRSetConfigSuccess) {
        return DisplaySwitchFailure{Stage::configure, status};
    }
    return std::nullopt;
}

void X11RandrDisplays::fitScreen(int minimumWidth, int minimumHeight, bool shrink)
{
    // Asked of the server, since Xlib's copy lags until the pump has read the resize notice.
    Window root = None;
    int x = 0;
    int y = 0;
    unsigned int rootWidth = 0;
    unsigned int rootHeight = 0;
    unsigned int border = 0;
    unsigned int depth = 0;
    if (!XGetGeometry(m_display, m_root, &root, &x, &y, &rootWidth, &rootHeight, &border, &depth)) {
        return;
    }
    const int screen = DefaultScreen(m_display);
    const int width = int(rootWidth);
    const int height = int(rootHeight);
    const int newWidth = shrink ? minimumWidth : std::max(width, minimumWidth);
    const int newHeight = shrink ? minimumHeight : std::max(height, minimumHeight);
    if (newWidth == width && newHeight == height) {
        return;
    }
    // The physical size keeps the screen's density.
    const int widthMM = width > 0 ? DisplayWidthMM(m_display, screen) * newWidth / width : 0;
    const int heightMM = height > 0 ? DisplayHeightMM(m_display, screen) * newHeight / height : 0;
    XRRSetScreenSize(m_display, m_root, newWidth, newHeight, std::max(widthMM, 1), std::max(heightMM, 1));
}
