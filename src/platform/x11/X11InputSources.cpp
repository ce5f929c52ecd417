#include "platform/x11/X11InputSources.h"

#include "platform/x11/X11KeyPositions.h"
#include "platform/x11/X11WindowProperty.h"

#include <QStringList>
#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <xkbcommon/xkbcommon.h>

namespace {

struct KeyboardDeleter {
    void operator()(XkbDescPtr desc) const { XkbFreeKeyboard(desc, XkbAllComponentsMask, True); }
};
using KeyboardPtr = std::unique_ptr<XkbDescRec, KeyboardDeleter>;

// The layouts and variants the server was configured with, "us,ru" and ",phonetic" as "us", "ru(phonetic)".
QStringList configuredLayouts(Display* display)
{
    const Atom rulesNames = XInternAtom(display, "_XKB_RULES_NAMES", True);
    if (rulesNames == None)
        return {};
    const auto read =
        X11WindowProperty::read(display, DefaultRootWindow(display), rulesNames, XA_STRING, 0, 1024);
    if (!read || !read->data || read->type != XA_STRING || read->format != 8)
        return {};
    // rules, model, layout, variant, options, each ended by a NUL.
    const QList<QByteArray> fields =
        QByteArray(reinterpret_cast<const char*>(read->data.get()), qsizetype(read->count)).split('\0');
    if (fields.size() < 3)
        return {};
    const QList<QByteArray> layouts = fields[2].split(',');
    const QList<QByteArray> variants = fields.size() > 3 ? fields[3].split(',') : QList<QByteArray>();
    QStringList result;
    for (qsizetype i = 0; i < layouts.size(); ++i) {
        QString id = QString::fromUtf8(layouts[i].trimmed());
        const QByteArray variant = i < variants.size() ? variants[i].trimmed() : QByteArray();
        if (!variant.isEmpty())
            id += QLatin1Char('(') + QString::fromUtf8(variant) + QLatin1Char(')');
        result.append(id);
    }
    return result;
}

} // namespace

// One reading of the server's keymap. Sources listed together share it, so that keys are translated on the
// keymap the sources were listed from even if the user reconfigures the keyboard in between.
struct X11InputSources::Keymap {
    KeyboardPtr desc;
    QList<std::optional<QString>> names;
    QStringList ids;
    X11KeyPositions positions;
};

struct X11InputSources::Group {
    std::shared_ptr<const Keymap> keymap;
    int index = 0;
};

void X11InputSources::DisplayCloser::operator()(_XDisplay* display) const
{
    XCloseDisplay(display);
}

X11InputSources::X11InputSources(const QByteArray& displayName)
{
    int event = 0;
    int error = 0;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    int reason = 0;
    m_display.reset(XkbOpenDisplay(displayName.isEmpty() ? nullptr : displayName.constData(), &event, &error,
                                   &major, &minor, &reason));
}

X11InputSources::~X11InputSources() = default;

void X11InputSources::followChanges(X11EventPump& pump)
{
    Display* display = pump.display();
    int opcode = 0;
    int eventBase = 0;
    int errorBase = 0;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    if (display == nullptr || !XkbQueryExtension(display, &opcode, &eventBase, &errorBase, &major, &minor))
        return;
    // Only the group: the modifiers change at every key press.
    XkbSelectEventDetails(display, XkbUseCoreKbd, XkbStateNotify, XkbGroupStateMask, XkbGroupStateMask);
    XFlush(display);
    m_events = pump.subscribe([this, eventBase](const XEvent& event) {
        const auto& xkb = reinterpret_cast<const XkbEvent&>(event);
        if (event.type == eventBase && xkb.any.xkb_type == XkbStateNotify &&
            (xkb.state.changed & XkbGroupStateMask) != 0)
            m_changes.notify();
    });
}

std::shared_ptr<const X11InputSources::Keymap> X11InputSources::fetchKeymap() const
{
    if (!m_display)
        return nullptr;
    Display* display = m_display.get();
    KeyboardPtr desc(XkbGetMap(display, XkbAllClientInfoMask, XkbUseCoreKbd));
    if (!desc ||
        XkbGetNames(display, XkbGroupNamesMask | XkbKeyNamesMask | XkbKeyAliasesMask, desc.get()) !=
            Success ||
        XkbGetControls(display, XkbAllControlsMask, desc.get()) != Success || !desc->names || !desc->ctrls)
        return nullptr;

    auto keymap = std::make_shared<Keymap>();
    const int groupCount = desc->ctrls->num_groups;
    const QStringList configured = configuredLayouts(display);
    for (int group = 0; group < groupCount; ++group) {
        std::optional<QString> name;
        if (const Atom atom = desc->names->groups[group]; atom != None) {
            const XPtr<char> text(XGetAtomName(display, atom));
            if (text)
                name = QString::fromUtf8(text.get());
        }
        keymap->names.append(name);
        QString id = group < configured.size() ? configured[group] : QStringLiteral("group%1").arg(group + 1);
        // The same layout twice would make both one source to the identifier-keyed map cache.
        if (keymap->ids.contains(id))
            id += QStringLiteral("#%1").arg(group + 1);
        keymap->ids.append(id);
    }
    keymap->positions = X11KeyPositions::of(*desc);
    keymap->desc = std::move(desc);
    return keymap;
}

QList<PlatformInputSource> X11InputSources::inputSources()
{
    const std::shared_ptr<const Keymap> keymap = fetchKeymap();
    if (!keymap)
        return {};
    QList<PlatformInputSource> result;
    for (int group = 0; group < keymap->ids.size(); ++group) {
        result.append(PlatformInputSource{std::make_shared<const Group>(Group{keymap, group}),
                                          keymap->names[group], keymap->ids[group],
                                          PlatformInputSource::Type::keyboardLayout, true});
    }
    return result;
}

std::optional<PlatformInputSource> X11InputSources::currentSource()
{
    if (!m_display)
        return std::nullopt;
    XkbStateRec state{};
    if (XkbGetState(m_display.get(), XkbUseCoreKbd, &state) != Success)
        return std::nullopt;
    const QList<PlatformInputSource> sources = inputSources();
    if (state.group >= sources.size())
        return std::nullopt;
    return sources[state.group];
}

std::int32_t X11InputSources::selectSource(const InputSourceRef& source)
{
    const auto* group = static_cast<const Group*>(source.get());
    if (!m_display || !group)
        return BadImplementation;
    if (!XkbLockGroup(m_display.get(), XkbUseCoreKbd, unsigned(group->index)))
        return BadImplementation;
    XFlush(m_display.get());
    return 0;
}

std::optional<QString> X11InputSources::translateKey(const InputSourceRef& source, int keyCode, bool shift)
{
    const auto* group = static_cast<const Group*>(source.get());
    if (!group || keyCode < 0 || keyCode > 0xFFFF)
        return std::nullopt;
    const Keymap& keymap = *group->keymap;
    const KeyCode keycode = keymap.positions.keycode(quint16(keyCode));
    if (keycode == 0)
        return std::nullopt;
    const unsigned int state = XkbBuildCoreState(shift ? ShiftMask : 0, group->index);
    unsigned int consumed = 0;
    KeySym keysym = NoSymbol;
    if (!XkbTranslateKeyCode(keymap.desc.get(), keycode, state, &consumed, &keysym) || keysym == NoSymbol)
        return std::nullopt;
    // Dead keys and function keys have no character.
    const char32_t character = xkb_keysym_to_utf32(xkb_keysym_t(keysym));
    if (character == 0)
        return std::nullopt;
    return QString::fromUcs4(&character, 1);
}
