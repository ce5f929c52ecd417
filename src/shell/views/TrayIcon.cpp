#include "shell/views/TrayIcon.h"

#include "shell/views/MenuBarIcon.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QPalette>

TrayIcon::TrayIcon()
{
    paintMark();
    // A switch between light and dark desktop themes arrives as a new application palette.
    QCoreApplication::instance()->installEventFilter(this);
    m_icon.setToolTip(QStringLiteral("MivoraAI"));
    // A left click opens the same menu as a right click: the tray entry has nothing else to do.
    QObject::connect(&m_icon, &QSystemTrayIcon::activated, &m_icon,
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger && m_menu) {
                             m_menu->popup(QCursor::pos());
                         }
                     });
    m_icon.show();
}

TrayIcon::~TrayIcon()
{
    m_icon.hide();
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::ApplicationPaletteChange) {
        paintMark();
    }
    return QObject::eventFilter(watched, event);
}

void TrayIcon::paintMark()
{
    m_icon.setIcon(MenuBarIcon::icon(QApplication::palette().color(QPalette::WindowText)));
}

void TrayIcon::setMenu(const MenuModel& menu)
{
    auto next = std::make_unique<QMenu>();
    next->setTitle(QStringLiteral("MivoraAI"));
    for (const MenuEntry& entry : menu) {
        if (entry.kind == MenuEntry::Kind::separator) {
            next->addSeparator();
            continue;
        }
        QAction* action = next->addAction(entry.title);
        action->setEnabled(entry.enabled);
        action->setCheckable(entry.checked);
        action->setChecked(entry.checked);
        if (entry.action) {
            // Queued, so a row that rebuilds the menu never deletes the menu that is still handling it.
            QObject::connect(
                action, &QAction::triggered, next.get(), [run = entry.action] { run(); },
                Qt::QueuedConnection);
        }
    }
    m_icon.setContextMenu(next.get());
    // The old menu may still be on screen or delivering a row; it goes once the event loop is back.
    if (m_menu) {
        m_menu.release()->deleteLater();
    }
    m_menu = std::move(next);
}
