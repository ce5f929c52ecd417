#pragma once

#include "shell/TraySurface.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>

// The tray entry: the program's mark, the tool tip "MivoraAI" and the menu its controller builds.
class TrayIcon : public TraySurface {
public:
    TrayIcon();
    ~TrayIcon() override;

    void setMenu(const MenuModel& menu) override;

    // Whether the desktop runs a tray host at all.
    static bool isHostAvailable() { return QSystemTrayIcon::isSystemTrayAvailable(); }

private:
    QSystemTrayIcon m_icon;
    std::unique_ptr<QMenu> m_menu;
};
