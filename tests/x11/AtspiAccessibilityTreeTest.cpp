#include "platform/x11/AtspiAccessibilityTree.h"

#include "PrivateAccessibilityBusTest.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// The test field on the suite's private accessibility bus.
class AtspiAccessibilityTreeTest : public PrivateAccessibilityBusTest {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(busIsReady());
        ASSERT_TRUE(field.start(QStringLiteral("MivoraAtspiField"), QStringLiteral("Accessible field"),
                                QStringLiteral("alpha beta gamma")));
        ASSERT_TRUE(field.waitForFocus());
        // The field registers on the accessibility bus on its own time.
        ASSERT_TRUE(spinUntil(
            [&] {
                application = tree->applicationElement(field.processIdentifier());
                return application && focused();
            },
            15s))
            << "the field never appeared on the accessibility bus";
    }

    AccessibilityElement focused()
    {
        const std::optional<AccessibilityValue> value =
            tree->attribute(application, QStringLiteral("AXFocusedUIElement"));
        return value && std::holds_alternative<AccessibilityElement>(*value)
                   ? std::get<AccessibilityElement>(*value)
                   : AccessibilityElement();
    }

    TestFieldProcess field;
    AccessibilityElement application;
};

TEST_F(AtspiAccessibilityTreeTest, FocusedFieldShowsItsTextSelectionAndPlaceInTheTree)
{
    ASSERT_TRUE(field.select(6, 4));
    const AccessibilityElement element = focused();
    EXPECT_EQ(text(element, QStringLiteral("AXRole")), QStringLiteral("AXTextField"));
    EXPECT_EQ(text(element, QStringLiteral("AXValue")), QStringLiteral("alpha beta gamma"));
    EXPECT_EQ(text(element, QStringLiteral("AXSelectedText")), QStringLiteral("beta"));
    const std::optional<AccessibilityValue> count =
        tree->attribute(element, QStringLiteral("AXNumberOfCharacters"));
    ASSERT_TRUE(count && std::holds_alternative<double>(*count));
    EXPECT_EQ(std::get<double>(*count), 16.0);
    EXPECT_EQ(tree->attribute(element, QStringLiteral("AXFocused")), std::optional<AccessibilityValue>(true));
    EXPECT_TRUE(tree->attributeNames(element).contains(QStringLiteral("AXSelectedText")));
    EXPECT_EQ(tree->isAttributeSettable(element, QStringLiteral("AXSelectedText")), true);
    EXPECT_TRUE(tree->isSameElement(element, focused()));
    EXPECT_FALSE(tree->isSameElement(element, application));

    const std::optional<AccessibilityValue> size = tree->attribute(element, QStringLiteral("AXSize"));
    ASSERT_TRUE(size && std::holds_alternative<QSizeF>(*size));
    EXPECT_GE(std::get<QSizeF>(*size).width(), 400.0);
    EXPECT_TRUE(tree->attribute(element, QStringLiteral("AXPosition")));

    // Up to the application (the field is its own window here), whose parent is no element.
    QStringList roles;
    AccessibilityElement current = element;
    for (int step = 0; current && step < 16; ++step) {
        roles.append(text(current, QStringLiteral("AXRole")).value_or(QString()));
        const std::optional<AccessibilityValue> up = tree->attribute(current, QStringLiteral("AXParent"));
        current = up ? std::get<AccessibilityElement>(*up) : AccessibilityElement();
    }
    EXPECT_TRUE(current.isNull());
    EXPECT_EQ(roles, QStringList({QStringLiteral("AXTextField"), QStringLiteral("AXApplication")}));

    const std::optional<AccessibilityValue> windows =
        tree->attribute(application, QStringLiteral("AXChildren"));
    ASSERT_TRUE(windows && std::holds_alternative<QList<AccessibilityElement>>(*windows));
    EXPECT_FALSE(std::get<QList<AccessibilityElement>>(*windows).isEmpty());
    EXPECT_FALSE(tree->applicationElement(field.processIdentifier() + 100000));
}

TEST_F(AtspiAccessibilityTreeTest, ReaderReadsAndReplacesTheSelectionOfTheRememberedApplication)
{
    X11DisplayConnection display;
    EventLoopClock clock;
    X11EventPump pump(display.get(), clock);
    X11ApplicationWorkspace workspace(pump);
    FocusService focus(workspace, *tree);
    AccessibilityTextReader reader(focus, workspace, *tree);
    const std::optional<RunningApplication> front = workspace.application(field.processIdentifier());
    ASSERT_TRUE(front);
    focus.remember(*front);

    ASSERT_TRUE(field.select(0, 5));
    EXPECT_EQ(reader.selectedText(), QStringLiteral("alpha"));
    EXPECT_EQ(reader.selectedTextForLayout(), QStringLiteral("alpha"));
    EXPECT_EQ(reader.focusedText(), QStringLiteral("alpha"));

    EXPECT_TRUE(reader.replaceSelectedText(QStringLiteral("omega")));
    EXPECT_EQ(field.text(), QStringLiteral("omega beta gamma"));

    // Nothing selected: the text goes in at the caret, and the selection reads as empty.
    ASSERT_TRUE(field.select(16, 0));
    EXPECT_EQ(reader.selectedText(), QString());
    EXPECT_TRUE(reader.replaceSelectedText(QStringLiteral("!")));
    EXPECT_EQ(field.text(), QStringLiteral("omega beta gamma!"));
}

// GTK offers the application's own search (the Collection interface): the visible editable fields of an
// application come in one call. Qt has none, so the search is empty there and callers walk.
TEST_F(AtspiAccessibilityTreeTest, TextFieldSearchUsesTheApplicationsOwnSearchWhereThereIsOne)
{
    EXPECT_TRUE(tree->searchTextFields(application, 100).isEmpty());

    QProcess gtk;
    gtk.start(QStringLiteral("gtk3-demo"), {QStringLiteral("--run=entry_buffer")});
    ASSERT_TRUE(gtk.waitForStarted()) << "gtk3-demo (gtk-3-examples) is not installed";
    AccessibilityElement demo;
    QList<AccessibilityElement> fields;
    EXPECT_TRUE(spinUntil(
        [&] {
            demo = tree->applicationElement(qint32(gtk.processId()));
            fields = demo ? tree->searchTextFields(demo, 100) : QList<AccessibilityElement>();
            return !fields.isEmpty();
        },
        15s));
    EXPECT_LE(fields.size(), 100);
    for (const AccessibilityElement& found : fields) {
        EXPECT_TRUE(QStringList({"AXTextField", "AXTextArea", "AXGroup"})
                        .contains(text(found, QStringLiteral("AXRole")).value_or(QString())));
        EXPECT_EQ(tree->attribute(found, QStringLiteral("AXIsEditable")),
                  std::optional<AccessibilityValue>(true));
    }
    EXPECT_EQ(tree->searchTextFields(demo, 1).size(), 1);
    gtk.kill();
    gtk.waitForFinished(2000);
}

} // namespace
