#include "QStringPrinting.h"
#include "panels/views/AssistantComposerTextView.h"

#include <QApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

// Enter sends; Shift or Alt with it breaks the line instead, and Control or Super with it still sends.
TEST(AssistantComposerTest, EnterSendsUnlessShiftOrAltIsHeld)
{
    struct Row {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool sends;
    };
    for (const Row& row :
         {Row{Qt::Key_Return, Qt::NoModifier, true}, Row{Qt::Key_Enter, Qt::KeypadModifier, true},
          Row{Qt::Key_Return, Qt::ControlModifier, true}, Row{Qt::Key_Return, Qt::MetaModifier, true},
          Row{Qt::Key_Return, Qt::ShiftModifier, false}, Row{Qt::Key_Return, Qt::AltModifier, false}}) {
        AssistantComposerTextView composer;
        composer.setTextIfDifferent(QStringLiteral("Hi"));
        int sent = 0;
        composer.onSubmit = [&] { ++sent; };
        QKeyEvent press(QEvent::KeyPress, row.key, row.modifiers, QStringLiteral("\r"));
        QApplication::sendEvent(&composer, &press);
        SCOPED_TRACE(int(row.modifiers));
        EXPECT_EQ(sent, row.sends ? 1 : 0);
        EXPECT_EQ(composer.toPlainText(), row.sends ? QStringLiteral("Hi") : QStringLiteral("Hi\n"));
    }
}
