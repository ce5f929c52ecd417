#include "platform/x11/X11InputSources.h"

#include "core/MivoraSettings.h"
#include "text/KeyboardLayoutService.h"

#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

// Runs against the private server of with-xvfb.sh; every test sets the keyboard it needs.
class X11InputSourcesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(provider.isConnected());
        configure({QStringLiteral("-layout"), QStringLiteral("us,ru")});
    }

    static void configure(const QStringList& arguments)
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), arguments), 0);
    }

    QStringList ids()
    {
        QStringList result;
        for (const PlatformInputSource& source : provider.inputSources())
            result.append(source.id.value_or(QString()));
        return result;
    }

    // The listed source whose identifier is id.
    PlatformInputSource source(const QString& id)
    {
        for (const PlatformInputSource& source : provider.inputSources()) {
            if (source.id == id)
                return source;
        }
        ADD_FAILURE() << "no source " << id.toStdString();
        return {};
    }

    X11InputSources provider;
};

TEST_F(X11InputSourcesTest, ListsTheGroupsAsKeyboardLayouts)
{
    const QList<PlatformInputSource> sources = provider.inputSources();
    ASSERT_EQ(sources.size(), 2);
    EXPECT_EQ(ids(), (QStringList{QStringLiteral("us"), QStringLiteral("ru")}));
    EXPECT_EQ(sources[1].name, QStringLiteral("Russian"));
    for (const PlatformInputSource& source : sources) {
        EXPECT_EQ(source.type, PlatformInputSource::Type::keyboardLayout);
        EXPECT_TRUE(source.hasKeyLayoutData);
    }

    configure({QStringLiteral("-layout"), QStringLiteral("us,ru,ru"), QStringLiteral("-variant"),
               QStringLiteral(",,phonetic")});
    EXPECT_EQ(ids(),
              (QStringList{QStringLiteral("us"), QStringLiteral("ru"), QStringLiteral("ru(phonetic)")}));
}

TEST_F(X11InputSourcesTest, TranslatesMacKeyCodesThroughKeyNames)
{
    const PlatformInputSource us = source(QStringLiteral("us"));
    const PlatformInputSource ru = source(QStringLiteral("ru"));
    constexpr int g = 5;
    constexpr int grave = 50;
    constexpr int period = 47;
    EXPECT_EQ(provider.translateKey(ru.ref, g, false), QStringLiteral("п"));
    EXPECT_EQ(provider.translateKey(ru.ref, g, true), QStringLiteral("П"));
    EXPECT_EQ(provider.translateKey(us.ref, g, false), QStringLiteral("g"));
    EXPECT_EQ(provider.translateKey(us.ref, grave, true), QStringLiteral("~"));
    EXPECT_EQ(provider.translateKey(ru.ref, grave, false), QStringLiteral("ё"));
    EXPECT_EQ(provider.translateKey(ru.ref, period, false), QStringLiteral("ю"));
    // Function keys and codes beyond the table type nothing.
    EXPECT_EQ(provider.translateKey(us.ref, 122, false), std::nullopt);
    EXPECT_EQ(provider.translateKey(us.ref, 500, false), std::nullopt);
}

TEST_F(X11InputSourcesTest, SelectedGroupReadsBackAsCurrent)
{
    EXPECT_EQ(provider.selectSource(source(QStringLiteral("ru")).ref), 0);
    ASSERT_TRUE(provider.currentSource());
    EXPECT_EQ(provider.currentSource()->id, QStringLiteral("ru"));

    EXPECT_EQ(provider.selectSource(source(QStringLiteral("us")).ref), 0);
    EXPECT_EQ(provider.currentSource()->id, QStringLiteral("us"));
}

TEST_F(X11InputSourcesTest, LayoutServiceFixesAndSwitchesWithTheServersLayouts)
{
    KeyboardLayoutService service(provider);
    const MivoraSettings settings;

    EXPECT_EQ(service.fix(QStringLiteral("ghbdtn"), settings),
              (KeyboardLayoutFixResult{QStringLiteral("привет"), false, QStringLiteral("Russian")}));
    const KeyboardLayoutFixResult back = service.fix(QStringLiteral("Руддщ"), settings);
    EXPECT_EQ(back.text, QStringLiteral("Hello"));
    EXPECT_TRUE(back.convertedToLatin);

    service.switchLayout(QStringLiteral("Russian"));
    EXPECT_EQ(service.currentLayoutName(), QStringLiteral("Russian"));
    service.switchLayoutIfNeeded(*back.targetLayoutName);
    EXPECT_EQ(provider.currentSource()->id, QStringLiteral("us"));
}

} // namespace
