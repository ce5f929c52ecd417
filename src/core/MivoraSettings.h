#pragma once

#include "core/AIReplyStyle.h"
#include "core/AIReplyStyleLibrary.h"
#include "core/AppLayoutRule.h"
#include "core/MivoraPromptLibrary.h"
#include "core/PromptStyle.h"
#include "core/QuickAction.h"
#include "core/SettingsEnums.h"
#include "core/WindowTilingHotkeys.h"

#include <QList>
#include <QString>
#include <QStringList>

// The one record of user preferences. Default-constructed, it holds the defaults of every persisted key.
struct MivoraSettings {
    AppearanceMode appearanceMode = AppearanceMode::system;
    SurfaceMode surfaceMode = SurfaceMode::translucent;
    MenuScale menuScale = MenuScale::tiny;
    QString targetLanguage = QStringLiteral("English");
    QString translatePreviewTargetLanguage = QStringLiteral("English");
    UiLanguage uiLanguage = UiLanguage::en;
    QString selectedStyleId = QStringLiteral("original");
    QList<PromptStyle> promptStyles = MivoraPromptLibrary::builtInStyles();
    QList<AIReplyStyle> aiReplyStyles = AIReplyStyleLibrary::builtInStyles();
    QString quickMenuHotkey = QStringLiteral("Alt+Q");
    QString assistantHotkey = QStringLiteral("Alt+I");
    QString clipboardHotkey = QStringLiteral("Alt+V");
    QString layoutHotkey = QStringLiteral("Alt+A");
    QString translatePreviewHotkey = QStringLiteral("Alt+R");
    QString layoutLatinSource = QStringLiteral("ABC");
    QString layoutNativeSource = QStringLiteral("Русская — ПК");
    bool layoutAutoSwitch = true;
    bool appLayoutSwitchingEnabled = false;
    QList<AppLayoutRule> appLayoutRules;
    bool windowTilingEnabled = true;
    WindowTilingHotkeyMap windowTilingHotkeys = WindowTilingHotkeys::defaults();
    // Switched off for good: the store always loads and saves false.
    bool autoQuickMenuEnabled = false;
    bool floatingButtonVisible = false;
    MenuScale quickMenuSize = MenuScale::tiny;
    QuickMenuOpenMode quickMenuOpenMode = QuickMenuOpenMode::input;
    QStringList quickMenuActions = QuickAction::defaultActionIds();
    QStringList quickMenuOrder = QuickAction::defaultActionIds();
    bool clipboardHistoryEnabled = true;
    int clipboardLimit = 100;
    QString clipboardDays = QStringLiteral("forever");
    bool openMainWindowOnLaunch = true;
    bool menuBarIconVisible = true;
    bool closeToMenuBar = true;
    bool autoSelectAllBeforeAction = true;
    bool aiContextEnabled = false;
    bool updateNotificationsEnabled = true;
    bool automaticUpdateChecksEnabled = true;

    bool operator==(const MivoraSettings&) const = default;
};
