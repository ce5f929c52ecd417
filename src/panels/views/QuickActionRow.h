#pragma once

#include "core/QuickAction.h"
#include "panels/QuickPanelController.h"

#include <QColor>
#include <QWidget>

class MivoraAppState;

// One action of the quick panel: its icon, its title and, on the translate row, the target-language menu.
// Hovering marks it in the controller, a click chooses it.
class QuickActionRow : public QWidget {
    Q_OBJECT
public:
    QuickActionRow(QuickPanelController& controller, MivoraAppState& appState, QuickAction action,
                   const QuickPanelController::Metrics& metrics, QColor ink, QWidget* parent = nullptr);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addLanguageMenu(const QString& current);

    QuickPanelController& m_controller;
    QuickAction m_action;
    QString m_title;
    QuickPanelController::Metrics m_metrics;
    QColor m_ink;
};
