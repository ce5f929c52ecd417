#pragma once

#include "core/UiLanguage.h"

enum class AppearanceMode { system, liquidSky, liquidViolet, liquidMint, liquidRose, liquidNoir };
enum class MenuScale { tiny, small, medium, large, xlarge };
enum class SurfaceMode { translucent, solid };
enum class QuickMenuOpenMode { input, button };
enum class SettingsPage {
    general,
    actions,
    styles,
    aiReply,
    quickMenu,
    clipboard,
    layout,
    permissions,
    shortcuts,
    updates
};

template <> struct EnumTable<AppearanceMode> {
    static constexpr std::array cases{
        EnumCase<AppearanceMode>{AppearanceMode::system, "system", "System", "Системный"},
        EnumCase<AppearanceMode>{AppearanceMode::liquidSky, "liquid-sky", "Sky Glass", "Небесное стекло"},
        EnumCase<AppearanceMode>{AppearanceMode::liquidViolet, "liquid-violet", "Violet Glass",
                                 "Фиолетовое стекло"},
        EnumCase<AppearanceMode>{AppearanceMode::liquidMint, "liquid-mint", "Mint Glass", "Мятное стекло"},
        EnumCase<AppearanceMode>{AppearanceMode::liquidRose, "liquid-rose", "Rose Glass", "Розовое стекло"},
        EnumCase<AppearanceMode>{AppearanceMode::liquidNoir, "liquid-noir", "Noir Glass", "Темное стекло"},
    };
};

template <> struct EnumTable<MenuScale> {
    static constexpr std::array cases{
        EnumCase<MenuScale>{MenuScale::tiny, "tiny", "Tiny", "Мини"},
        EnumCase<MenuScale>{MenuScale::small, "small", "Small", "Маленький"},
        EnumCase<MenuScale>{MenuScale::medium, "medium", "Medium", "Средний"},
        EnumCase<MenuScale>{MenuScale::large, "large", "Large", "Большой"},
        EnumCase<MenuScale>{MenuScale::xlarge, "xlarge", "Extra Large", "Очень большой"},
    };
};

template <> struct EnumTable<SurfaceMode> {
    static constexpr std::array cases{
        EnumCase<SurfaceMode>{SurfaceMode::translucent, "translucent", "Translucent", "Прозрачный"},
        EnumCase<SurfaceMode>{SurfaceMode::solid, "solid", "Solid", "Сплошной"},
    };
};

template <> struct EnumTable<QuickMenuOpenMode> {
    static constexpr std::array cases{
        EnumCase<QuickMenuOpenMode>{QuickMenuOpenMode::input, "input", "Input", "Ввод"},
        EnumCase<QuickMenuOpenMode>{QuickMenuOpenMode::button, "button", "Button", "Кнопка"},
    };
};

template <> struct EnumTable<SettingsPage> {
    static constexpr std::array cases{
        EnumCase<SettingsPage>{SettingsPage::general, "general", "General", "Основные"},
        EnumCase<SettingsPage>{SettingsPage::actions, "actions", "Actions", "Действия"},
        EnumCase<SettingsPage>{SettingsPage::styles, "styles", "Styles", "Стили"},
        EnumCase<SettingsPage>{SettingsPage::aiReply, "aiReply", "AI Reply", "AI Reply"},
        EnumCase<SettingsPage>{SettingsPage::quickMenu, "quickMenu", "Quick Menu", "Быстрое меню"},
        EnumCase<SettingsPage>{SettingsPage::clipboard, "clipboard", "Clipboard", "Буфер"},
        EnumCase<SettingsPage>{SettingsPage::layout, "layout", "Layout", "Раскладка"},
        EnumCase<SettingsPage>{SettingsPage::permissions, "permissions", "Permissions", "Разрешения"},
        EnumCase<SettingsPage>{SettingsPage::shortcuts, "shortcuts", "Shortcuts", "Хоткеи"},
        EnumCase<SettingsPage>{SettingsPage::updates, "updates", "Updates", "Обновления"},
    };
};

// The platform symbol shown beside each settings page.
QString symbolName(SettingsPage page);

class SystemSurfaceSignals;

// The surface mode the platform asks for; translucent when it has no signals (surfaceSignals may be null).
SurfaceMode systemResolvedSurfaceMode(const SystemSurfaceSignals* surfaceSignals);
