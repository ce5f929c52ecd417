#include "hotkeys/views/HotkeyRecorderField.h"

#include "hotkeys/GlobalHotkeySuspension.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct CountingSuspension : GlobalHotkeySuspension {
    int depth = 0;
    void suspendGlobalHotkeys() override { ++depth; }
    void resumeGlobalHotkeys() override { --depth; }
};

class HotkeyRecorderFieldTest : public ::testing::Test {
protected:
    HotkeyRecorderFieldTest()
    {
        field = new HotkeyRecorderField(&suspension, 142, &window);
        other = new QLineEdit(&window);
        other->move(0, 40);
        field->setHotkey(QStringLiteral("Alt+A"));
        window.show();
        other->setFocus();
    }

    // Keys go to whatever has the focus, as a user's would; the recorder must take them from there.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(other, key, modifiers);
    }

    CountingSuspension suspension;
    QWidget window;
    HotkeyRecorderField* field;
    QLineEdit* other;
};

} // namespace

TEST_F(HotkeyRecorderFieldTest, RecordsAChordWhileHotkeysAreSuspendedAndIgnoresBareKeys)
{
    QSignalSpy edits(field, &HotkeyRecorderField::hotkeyEdited);
    EXPECT_EQ(field->text(), QStringLiteral("⌥ A"));
    EXPECT_EQ(field->toolTip(),
              QStringLiteral("Click, then press a shortcut. Escape cancels. Delete clears."));
    QTest::mouseClick(field, Qt::LeftButton);
    EXPECT_EQ(field->text(), QStringLiteral("Press shortcut..."));
    EXPECT_EQ(suspension.depth, 1);
    field->click();
    EXPECT_EQ(suspension.depth, 1);

    press(Qt::Key_K);
    EXPECT_TRUE(field->isRecording());
    EXPECT_TRUE(other->text().isEmpty());
    press(Qt::Key_K, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(edits.size(), 1);
    EXPECT_EQ(edits.at(0).at(0).toString(), QStringLiteral("Control+Alt+K"));
    EXPECT_EQ(field->text(), QStringLiteral("⌃ ⌥ K"));
    EXPECT_EQ(suspension.depth, 0);
    press(Qt::Key_J);
    EXPECT_EQ(other->text(), QStringLiteral("j"));
}

TEST_F(HotkeyRecorderFieldTest, EscapeCancelsDeleteClearsAndHidingStops)
{
    QSignalSpy edits(field, &HotkeyRecorderField::hotkeyEdited);
    field->click();
    press(Qt::Key_Escape);
    EXPECT_FALSE(field->isRecording());
    EXPECT_TRUE(edits.isEmpty());
    EXPECT_EQ(field->text(), QStringLiteral("⌥ A"));

    field->click();
    press(Qt::Key_Backspace);
    ASSERT_EQ(edits.size(), 1);
    EXPECT_EQ(edits.at(0).at(0).toString(), QStringLiteral("Not assigned"));
    EXPECT_EQ(field->text(), QStringLiteral("Not assigned"));

    field->click();
    window.hide();
    EXPECT_FALSE(field->isRecording());
    EXPECT_EQ(suspension.depth, 0);
}
