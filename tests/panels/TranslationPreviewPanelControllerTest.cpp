#include "panels/TranslationPreviewPanelController.h"

#include "AIPanelFakes.h"
#include "QStringPrinting.h"
#include "panels/AssistantPanelController.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

class TranslationPreviewTest : public AIPanelHarness, public ::testing::Test {
protected:
    TranslationPreviewTest()
    {
        followStatus();
        configure([](MivoraSettings& s) { s.translatePreviewTargetLanguage = QStringLiteral("German"); });
    }

    TranslationPreviewPanelController preview{{state, ai, world, defaults}, surface()};
};

TEST_F(TranslationPreviewTest, OpensAfterReadingTheSelectionOnEitherRoute)
{
    struct Row {
        const char* what;
        const char* quiet;
        std::optional<QString> readError;
        QStringList log;
        const char* source;
        const char* error;
    };
    for (const Row& row : {
             Row{"accessibility",
                 " Hallo ",
                 std::nullopt,
                 {"remember", "quiet read", "present"},
                 "Hallo",
                 ""},
             Row{"copy",
                 "",
                 std::nullopt,
                 {"remember", "quiet read", "copy read 0 1 1", "present"},
                 "copied",
                 ""},
             Row{"nothing",
                 "",
                 QStringLiteral("No text selected"),
                 {"remember", "quiet read", "copy read 0 1 1", "present"},
                 "",
                 "No text selected"},
         }) {
        SCOPED_TRACE(row.what);
        world.log.clear();
        world.shown = false;
        world.quietSelection = QString::fromUtf8(row.quiet);
        world.copiedSelection = QStringLiteral("copied");
        world.readError = row.readError;
        preview.showFromSelection();
        clock.runUntilIdle();
        EXPECT_EQ(world.log, row.log);
        EXPECT_EQ(preview.sourceText(), QString::fromUtf8(row.source));
        EXPECT_EQ(preview.errorText(), QString::fromUtf8(row.error));
        EXPECT_FALSE(preview.isRunning());
    }
    EXPECT_EQ(statuses().first(), ActionStatus::running(QStringLiteral("Reading selection")));
    EXPECT_EQ(statuses().last(), ActionStatus::failed(QStringLiteral("No text selected")));
    ASSERT_EQ(ai.sends.size(), 2);
    EXPECT_EQ(ai.sends[0].style.id, u"translate");
    EXPECT_EQ(ai.sends[0].targetLanguage, u"German");
    EXPECT_TRUE(ai.sends[0].retryOnUnchangedTranslation);
}

TEST_F(TranslationPreviewTest, LanguageClipboardFontAndPasteRules)
{
    preview.setTargetLanguage(QStringLiteral("French"));
    EXPECT_TRUE(ai.sends.isEmpty()) << "an empty source only stores the language";
    EXPECT_EQ(state.settings().translatePreviewTargetLanguage, u"French");

    preview.pasteFromClipboardAndTranslate();
    clock.runUntilIdle();
    EXPECT_EQ(preview.errorText(), u"Clipboard is empty.");
    world.clipboard = QStringLiteral(" Bonjour ");
    preview.pasteFromClipboardAndTranslate();
    clock.runUntilIdle();
    EXPECT_EQ(preview.sourceText(), u"Bonjour");
    EXPECT_EQ(preview.resultText(), u"re:Bonjour");
    EXPECT_EQ(statuses().last(), ActionStatus::done(QStringLiteral("Translation preview ready")));

    world.log.clear();
    preview.pasteResult();
    clock.runUntilIdle();
    EXPECT_EQ(world.log, (QStringList{"paste re:Bonjour 1"}))
        << "hidden first (never shown here), standard timing";

    EXPECT_EQ(preview.previewFontSize(), 14);
    preview.setPreviewFontSize(40);
    EXPECT_EQ(preview.previewFontSize(), 28);
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.translationPreviewPanel.fontSize")).toDouble(), 28);
}

TEST_F(TranslationPreviewTest, TheLastAnswerToArriveWins)
{
    world.clipboard = QStringLiteral("Text");
    ai.script = {{QStringLiteral("slow German"), 1000ms}, {QStringLiteral("quick French"), 100ms}};
    preview.pasteFromClipboardAndTranslate();
    preview.setTargetLanguage(QStringLiteral("French"));
    clock.advance(100ms);
    EXPECT_EQ(preview.resultText(), u"quick French");
    clock.advance(900ms);
    EXPECT_EQ(preview.resultText(), u"slow German");
}

TEST_F(TranslationPreviewTest, SavedSizesAndFontSizesOutsideTheLimitsFallBack)
{
    struct Row {
        const char* prefix;
        double width;
        double height;
        QSize opens;
    };
    for (const Row& row : {
             Row{"mivora.assistantPanel", 1000, 1000, {920, 900}},
             Row{"mivora.assistantPanel", 479, 900, {620, 680}},
             Row{"mivora.assistantPanel", 0, 0, {620, 680}},
             Row{"mivora.translationPreviewPanel", 500, 500, {680, 460}},
             Row{"mivora.translationPreviewPanel", 1200, 900, {980, 860}},
             Row{"mivora.translationPreviewPanel", 600, 400, {600, 400}},
         }) {
        defaults.setValue(QString::fromUtf8(row.prefix) + QStringLiteral(".width"), row.width);
        defaults.setValue(QString::fromUtf8(row.prefix) + QStringLiteral(".height"), row.height);
        AssistantPanelController assistant{{state, clock, ai, world, defaults}, surface()};
        const QSize opens = QByteArray(row.prefix).contains("assistant") ? assistant.savedPanelSize()
                                                                         : preview.savedPanelSize();
        EXPECT_EQ(opens, row.opens) << row.prefix << " " << row.width << "x" << row.height;
    }
    preview.savePanelSize(QSize(100, 2000));
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.translationPreviewPanel.width")).toDouble(), 520);

    defaults.setValue(QStringLiteral("mivora.translationPreviewPanel.fontSize"), 11.0);
    EXPECT_EQ((TranslationPreviewPanelController{{state, ai, world, defaults}, surface()}.previewFontSize()),
              14);
    defaults.setValue(QStringLiteral("mivora.translationPreviewPanel.fontSize"), 20.0);
    EXPECT_EQ((TranslationPreviewPanelController{{state, ai, world, defaults}, surface()}.previewFontSize()),
              20);
}
