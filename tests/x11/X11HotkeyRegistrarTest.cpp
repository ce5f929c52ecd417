#include "platform/x11/X11HotkeyRegistrar.h"

#include "EventLoopWait.h"
#include "X11TestClient.h"
#include "hotkeys/MacKeyCode.h"
#include "hotkeys/ParsedHotkey.h"

#include <QProcess>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr quint16 macA = 0;
constexpr quint16 macB = 11;
constexpr quint16 macC = 8;
const HotkeyModifiers alt(HotkeyModifier::Option);
const HotkeyModifiers controlAlt = HotkeyModifier::Control | HotkeyModifier::Option;

class X11HotkeyRegistrarTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_other.isConnected()) << "no X display";
        ASSERT_EQ(m_registrar.installPressHandler([this](quint32 id) { m_pressed.push_back(id); }), 0);
    }

    // Presses of chords typed before a marker chord are reported before the marker's, so waiting for the
    // marker also shows what did not fire. Waits on the event loop: the X server answers when it answers.
    std::vector<quint32> pressesUntil(quint32 markerId)
    {
        spinUntil([&] { return !m_pressed.empty() && m_pressed.back() == markerId; });
        return std::exchange(m_pressed, {});
    }

    void toggleLocks()
    {
        m_other.type({QStringLiteral("Caps_Lock")});
        m_other.type({QStringLiteral("Num_Lock")});
    }

    X11TestClient m_other;
    X11HotkeyRegistrar m_registrar;
    std::vector<quint32> m_pressed;
};

const QStringList altA{QStringLiteral("Alt_L"), QStringLiteral("a")};
const QStringList controlAltB{QStringLiteral("Control_L"), QStringLiteral("Alt_L"), QStringLiteral("b")};
const QStringList controlAltC{QStringLiteral("Control_L"), QStringLiteral("Alt_L"), QStringLiteral("c")};

TEST_F(X11HotkeyRegistrarTest, ChordFiresOncePerPressWhateverTheLockKeys)
{
    ASSERT_EQ(m_registrar.registerHotkey(7, macA, alt), 0);
    ASSERT_EQ(m_registrar.registerHotkey(8, macC, controlAlt), 0);

    m_other.type(altA);
    m_other.type({QStringLiteral("Alt_L"), QStringLiteral("Shift_L"), QStringLiteral("a")});
    m_other.type({QStringLiteral("Control_L"), QStringLiteral("a")});
    m_other.type(controlAltC);
    EXPECT_EQ(pressesUntil(8), (std::vector<quint32>{7, 8}));

    toggleLocks();
    m_other.type(altA);
    toggleLocks();
    m_other.type(controlAltC);
    EXPECT_EQ(pressesUntil(8), (std::vector<quint32>{7, 8}));

    // The server repeats a held key; holding the chord is still one press.
    m_other.setKeyRepeat(20, 10);
    m_other.press(QStringLiteral("Alt_L"));
    m_other.press(QStringLiteral("a"));
    pauseFor(std::chrono::milliseconds(200));
    m_other.release(QStringLiteral("a"));
    m_other.release(QStringLiteral("Alt_L"));
    m_other.setKeyRepeat(660, 40);
    m_other.type(controlAltC);
    EXPECT_EQ(pressesUntil(8), (std::vector<quint32>{7, 8}));
}

TEST_F(X11HotkeyRegistrarTest, ChordHeldByAnotherClientIsRefusedAndOthersStay)
{
    ASSERT_EQ(m_registrar.registerHotkey(1, macA, alt), 0);
    ASSERT_EQ(m_other.grab(QStringLiteral("b"), controlAlt), 0);

    EXPECT_EQ(m_registrar.registerHotkey(2, macB, controlAlt), X11TestClient::badAccess);
    ASSERT_EQ(m_registrar.registerHotkey(3, macC, controlAlt), 0);

    m_other.type(controlAltB);
    m_other.type(altA);
    m_other.type(controlAltC);
    EXPECT_EQ(pressesUntil(3), (std::vector<quint32>{1, 3}));
    m_other.ungrabAll();
}

TEST_F(X11HotkeyRegistrarTest, UnregisterReleasesEveryGrab)
{
    ASSERT_EQ(m_registrar.registerHotkey(1, macA, alt), 0);
    EXPECT_EQ(m_other.grab(QStringLiteral("a"), alt), X11TestClient::badAccess);

    m_registrar.unregisterAll();
    EXPECT_EQ(m_other.grab(QStringLiteral("a"), alt), 0);
    m_other.ungrabAll();

    ASSERT_EQ(m_registrar.registerHotkey(2, macC, alt), 0);
    m_other.type(altA);
    m_other.type({QStringLiteral("Alt_L"), QStringLiteral("c")});
    EXPECT_EQ(pressesUntil(2), (std::vector<quint32>{2}));
}

// Chords sit on key positions: a keymap without Latin letters, or with them elsewhere, has every key, and
// Alt+A is the key right of Caps Lock on all of them.
TEST_F(X11HotkeyRegistrarTest, EveryStorableKeyCanBeGrabbedWhateverTheKeymap)
{
    const HotkeyModifiers all =
        HotkeyModifier::Command | HotkeyModifier::Control | HotkeyModifier::Option | HotkeyModifier::Shift;
    for (const char* layout : {"ru", "fr", "us(dvorak)", "us,ru"}) {
        SCOPED_TRACE(layout);
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {QString::fromLatin1(layout)}), 0);
        m_registrar.unregisterAll();
        quint32 id = 1;
        for (auto it = ParsedHotkey::keyCodes().cbegin(); it != ParsedHotkey::keyCodes().cend(); ++it) {
            EXPECT_EQ(m_registrar.registerHotkey(id++, it.value(), all), 0) << it.key().toStdString();
        }
        EXPECT_EQ(m_registrar.registerHotkey(id, MacKeyCode::none, all),
                  X11HotkeyRegistrar::unknownKeyStatus);

        m_registrar.unregisterAll();
        ASSERT_EQ(m_registrar.registerHotkey(1, macA, alt), 0);
        ASSERT_EQ(m_registrar.registerHotkey(2, macC, controlAlt), 0);
        m_other.typeAt({QStringLiteral("Alt_L")}, MacKeyCode::a);
        m_other.typeAt({QStringLiteral("Control_L"), QStringLiteral("Alt_L")}, MacKeyCode::c);
        EXPECT_EQ(pressesUntil(2), (std::vector<quint32>{1, 2}));
    }
}

TEST(X11HotkeyRegistrarWithoutServerTest, RefusesEverything)
{
    X11HotkeyRegistrar registrar(QByteArrayLiteral(":999"));
    EXPECT_EQ(registrar.installPressHandler([](quint32) {}), X11HotkeyRegistrar::noDisplayStatus);
    EXPECT_EQ(registrar.registerHotkey(1, macA, alt), X11HotkeyRegistrar::noDisplayStatus);
    registrar.unregisterAll();
}

} // namespace
