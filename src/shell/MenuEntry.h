#pragma once

#include <QList>
#include <QString>
#include <functional>

// One row of the tray menu as data: the views turn it into a toolkit menu item. An entry's action lives as
// long as the menu it belongs to.
struct MenuEntry {
    enum class Kind { action, separator };

    Kind kind = Kind::action;
    QString title;
    bool enabled = true;
    bool checked = false;
    std::function<void()> action;

    static MenuEntry item(QString title, std::function<void()> action)
    {
        return {Kind::action, std::move(title), true, false, std::move(action)};
    }
    static MenuEntry separator() { return {Kind::separator, {}, false, false, {}}; }
};

using MenuModel = QList<MenuEntry>;
