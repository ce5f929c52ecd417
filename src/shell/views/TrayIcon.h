#pragma once

#include "shell/TraySurface.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <memory>

// The tray entry: the program's mark, the tool tip "MivoraAI" and the menu its controller builds. The mark is
// drawn in the desktop's text colour, and drawn again when the desktop's colours change.
class TrayIcon : public QObject, public TraySurface {
    Q_OBJECT
public:
    TrayIcon();
    ~TrayIcon() override;

    void setMenu(const MenuModel& menu) override;

    // Whether the desktop runs a tray host at all.
    static bool isHostAvailable() { return QSystemTrayIcon::isSystemTrayAvailable(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintMark();

    QSystemTrayIcon m_icon;
    std::unique_ptr<QMenu> m_menu;
};
