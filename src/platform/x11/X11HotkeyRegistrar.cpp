#include "platform/x11/X11HotkeyRegistrar.h"

#include "platform/x11/X11ErrorTrap.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>
#include <unordered_map>

namespace {

// The keysym a macOS virtual key code stands for, as a US layout labels the key.
const std::unordered_map<quint16, KeySym>& keysymsByMacKeyCode()
{
    static const std::unordered_map<quint16, KeySym> table{
        {0, XK_a},       {1, XK_s},          {2, XK_d},
        {3, XK_f},       {4, XK_h},          {5, XK_g},
        {6, XK_z},       {7, XK_x},          {8, XK_c},
        {9, XK_v},       {11, XK_b},         {12, XK_q},
        {13, XK_w},      {14, XK_e},         {15, XK_r},
        {16, XK_y},      {17, XK_t},         {18, XK_1},
        {19, XK_2},      {20, XK_3},         {21, XK_4},
        {22, XK_6},      {23, XK_5},         {24, XK_equal},
        {25, XK_9},      {26, XK_7},         {27, XK_minus},
        {28, XK_8},      {29, XK_0},         {30, XK_bracketright},
        {31, XK_o},      {32, XK_u},         {33, XK_bracketleft},
        {34, XK_i},      {35, XK_p},         {36, XK_Return},
        {37, XK_l},      {38, XK_j},         {39, XK_apostrophe},
        {40, XK_k},      {41, XK_semicolon}, {42, XK_backslash},
        {43, XK_comma},  {44, XK_slash},     {45, XK_n},
        {46, XK_m},      {47, XK_period},    {48, XK_Tab},
        {49, XK_space},  {50, XK_grave},     {51, XK_BackSpace},
        {53, XK_Escape}, {64, XK_F17},       {76, XK_KP_Enter},
        {79, XK_F18},    {80, XK_F19},       {90, XK_F20},
        {96, XK_F5},     {97, XK_F6},        {98, XK_F7},
        {99, XK_F3},     {100, XK_F8},       {101, XK_F9},
        {103, XK_F11},   {105, XK_F13},      {106, XK_F16},
        {107, XK_F14},   {109, XK_F10},      {111, XK_F12},
        {113, XK_F15},   {114, XK_Insert},   {115, XK_Home},
        {116, XK_Prior}, {117, XK_Delete},   {118, XK_F4},
        {119, XK_End},   {120, XK_F2},       {121, XK_Next},
        {122, XK_F1},    {123, XK_Left},     {124, XK_Right},
        {125, XK_Down},  {126, XK_Up},
    };
    return table;
}

// Command is the Super key here, as desktops mark it with their own logo.
unsigned xModifiers(HotkeyModifiers modifiers)
{
    unsigned mask = 0;
    if (modifiers.testFlag(HotkeyModifier::Shift)) {
        mask |= ShiftMask;
    }
    if (modifiers.testFlag(HotkeyModifier::Control)) {
        mask |= ControlMask;
    }
    if (modifiers.testFlag(HotkeyModifier::Option)) {
        mask |= Mod1Mask;
    }
    if (modifiers.testFlag(HotkeyModifier::Command)) {
        mask |= Mod4Mask;
    }
    return mask;
}

constexpr unsigned chordModifierMask = ShiftMask | ControlMask | Mod1Mask | Mod4Mask;

struct ModifierMapFree {
    void operator()(XModifierKeymap* map) const { XFreeModifiermap(map); }
};

// Num Lock sits on whichever modifier the keymap puts it; usually Mod2, but not by any rule.
unsigned numLockMask(Display* display)
{
    const KeyCode numLock = XKeysymToKeycode(display, XK_Num_Lock);
    if (numLock == 0) {
        return 0;
    }
    const std::unique_ptr<XModifierKeymap, ModifierMapFree> map(XGetModifierMapping(display));
    if (!map) {
        return 0;
    }
    for (int modifier = 0; modifier < 8; ++modifier) {
        for (int slot = 0; slot < map->max_keypermod; ++slot) {
            if (map->modifiermap[modifier * map->max_keypermod + slot] == numLock) {
                return 1u << modifier;
            }
        }
    }
    return 0;
}

} // namespace

X11HotkeyRegistrar::X11HotkeyRegistrar(const QByteArray& displayName) : m_display(displayName)
{
    if (!m_display) {
        return;
    }
    // Held chords then repeat as presses alone, without a release between them, so repeats can be told
    // from new presses.
    XkbSetDetectableAutoRepeat(m_display.get(), True, nullptr);
    m_notifier = std::make_unique<QSocketNotifier>(ConnectionNumber(m_display.get()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { readEvents(); });
}

X11HotkeyRegistrar::~X11HotkeyRegistrar()
{
    // The grabs die with the connection; releasing them first only keeps the server's log quiet.
    if (m_display) {
        unregisterAll();
    }
}

qint32 X11HotkeyRegistrar::installPressHandler(PressHandler handler)
{
    if (!m_display) {
        return noDisplayStatus;
    }
    m_handler = std::move(handler);
    return 0;
}

void X11HotkeyRegistrar::removePressHandler()
{
    m_handler = nullptr;
}

qint32 X11HotkeyRegistrar::registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers)
{
    if (!m_display) {
        return noDisplayStatus;
    }
    Display* display = m_display.get();
    const auto keysym = keysymsByMacKeyCode().find(macKeyCode);
    const KeyCode keyCode =
        keysym == keysymsByMacKeyCode().end() ? 0 : XKeysymToKeycode(display, keysym->second);
    if (keyCode == 0) {
        return unknownKeyStatus;
    }

    Grab grab{id, keyCode, xModifiers(modifiers), currentLockStates()};
    const Window root = DefaultRootWindow(display);
    int status = 0;
    {
        X11ErrorTrap trap(display);
        for (const unsigned locks : grab.lockStates) {
            XGrabKey(display, static_cast<int>(keyCode), grab.modifiers | locks, root, False, GrabModeAsync,
                     GrabModeAsync);
        }
        status = trap.sync();
        if (status != 0) {
            // Some lock states may have been granted before one was refused; a chord is held whole or not
            // at all. Ungrabbing never touches another client's grab.
            ungrab(grab);
        }
    }
    readQueuedEventsLater();
    if (status != 0) {
        return status;
    }
    m_grabs.push_back(std::move(grab));
    return 0;
}

void X11HotkeyRegistrar::unregisterAll()
{
    if (!m_display) {
        return;
    }
    {
        X11ErrorTrap trap(m_display.get());
        for (const Grab& grab : m_grabs) {
            ungrab(grab);
        }
        trap.sync();
    }
    m_grabs.clear();
    m_heldKeyCode = 0;
    readQueuedEventsLater();
}

std::vector<unsigned> X11HotkeyRegistrar::currentLockStates() const
{
    const unsigned numLock = numLockMask(m_display.get());
    if (numLock == 0) {
        return {0, LockMask};
    }
    return {0, LockMask, numLock, LockMask | numLock};
}

void X11HotkeyRegistrar::ungrab(const Grab& grab) const
{
    Display* display = m_display.get();
    for (const unsigned locks : grab.lockStates) {
        XUngrabKey(display, static_cast<int>(grab.keyCode), grab.modifiers | locks,
                   DefaultRootWindow(display));
    }
}

void X11HotkeyRegistrar::readEvents()
{
    Display* display = m_display.get();
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        handleEvent(event);
    }
}

void X11HotkeyRegistrar::handleEvent(const XEvent& event)
{
    if (event.type == KeyRelease) {
        if (event.xkey.keycode == m_heldKeyCode) {
            m_heldKeyCode = 0;
        }
        return;
    }
    if (event.type != KeyPress || event.xkey.keycode == m_heldKeyCode) {
        return;
    }
    const unsigned chord = event.xkey.state & chordModifierMask;
    for (const Grab& grab : m_grabs) {
        if (grab.keyCode == event.xkey.keycode && grab.modifiers == chord) {
            m_heldKeyCode = event.xkey.keycode;
            if (m_handler) {
                m_handler(grab.id);
            }
            return;
        }
    }
}

void X11HotkeyRegistrar::readQueuedEventsLater()
{
    if (XQLength(m_display.get()) > 0) {
        QMetaObject::invokeMethod(
            m_notifier.get(), [this] { readEvents(); }, Qt::QueuedConnection);
    }
}
