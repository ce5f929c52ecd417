#include "panels/views/SymbolIcons.h"

#include "QStringPrinting.h"
#include "core/MivoraPromptLibrary.h"
#include "core/QuickAction.h"
#include "core/SettingsEnums.h"

#include <gtest/gtest.h>

// Every symbol the program names, in the views and through actions, styles and settings pages, has an entry
// of its own: an unknown name would fall back to a plain dot.
TEST(SymbolIconsTest, EverySymbolTheProgramNamesHasItsOwnEntry)
{
    // The names the views spell out.
    QStringList names =
        QStringLiteral("arrow.clockwise arrow.down.circle.fill arrow.triangle.2.circlepath "
                       "arrow.turn.down.left bolt.fill bubble.left.and.bubble.right checkmark "
                       "checkmark.circle checkmark.circle.fill chevron.down chevron.up.chevron.down "
                       "clipboard clock doc.on.clipboard doc.on.doc exclamationmark.circle "
                       "exclamationmark.triangle.fill face.smiling globe magnifyingglass minus note.text "
                       "paperplane.fill pencil plus plus.message plus.square.on.square progress.indicator "
                       "sidebar.leading sidebar.left sparkles translate trash xmark xmark.circle.fill")
            .split(u' ');
    for (const PromptStyle& style : MivoraPromptLibrary::builtInStyles()) {
        names << QuickAction("style:" + style.id).symbolName();
    }
    for (const char* id : {"ai", "translate", "clipboard", "layout"}) {
        names << QuickAction(id).symbolName();
    }
    for (const auto& page : EnumTable<SettingsPage>::cases) {
        names << symbolName(page.value);
    }
    const QString unknown = SymbolIcons::glyph("no.such.symbol");
    for (const QString& name : names) {
        EXPECT_NE(SymbolIcons::glyph(name), unknown) << qPrintable(name);
        EXPECT_FALSE(SymbolIcons::icon(name, Qt::black, 16).isNull()) << qPrintable(name);
    }
}
