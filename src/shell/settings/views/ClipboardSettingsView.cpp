#include "shell/settings/views/ClipboardSettingsView.h"

#include "core/MivoraAppState.h"
#include "panels/views/SymbolIcons.h"
#include "shell/settings/ClipboardSettingsModel.h"
#include "shell/settings/views/SettingsCard.h"
#include "shell/settings/views/SettingsPageKit.h"
#include "shell/settings/views/SettingsRow.h"
#include "shell/settings/views/SettingsSwitch.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

ClipboardSettingsView::ClipboardSettingsView(MivoraAppState& appState, ClipboardHistoryService& history,
                                             QWidget* parent)
    : SettingsPageWidget(appState, parent), m_model(new ClipboardSettingsModel(appState, history, this))
{
    auto* historySwitch = new SettingsSwitch;
    m_historyEnabled = new SettingsRow(historySwitch);
    auto* stepper = new QWidget;
    auto* stepperLayout = new QHBoxLayout(stepper);
    stepperLayout->setContentsMargins(0, 0, 0, 0);
    stepperLayout->setSpacing(2);
    m_stepDown = new QToolButton;
    m_stepDown->setText(QStringLiteral("−"));
    m_stepUp = new QToolButton;
    m_stepUp->setText(QStringLiteral("+"));
    stepperLayout->addWidget(m_stepDown);
    stepperLayout->addWidget(m_stepUp);
    m_limit = new SettingsRow(stepper);
    m_days = new SettingsRow(new QLabel);
    m_clear = new QPushButton;
    auto* card = new SettingsCard(this);
    card->addRow(m_historyEnabled);
    card->addRow(m_limit);
    card->addRow(m_days);
    card->addRow(m_clear);
    card->rows()->setAlignment(m_clear, Qt::AlignLeft);
    column()->addWidget(card);
    m_recentHeading = addHeading();
    m_items = new SettingsCard(this);
    m_items->rows()->setSpacing(4);
    column()->addWidget(m_items);

    connect(historySwitch, &SettingsSwitch::toggled, m_model, &ClipboardSettingsModel::setHistoryEnabled);
    connect(m_stepDown, &QToolButton::clicked, this, [this] { m_model->step(-1); });
    connect(m_stepUp, &QToolButton::clicked, this, [this] { m_model->step(+1); });
    connect(m_clear, &QPushButton::clicked, m_model, &ClipboardSettingsModel::clearHistory);
    connect(m_model, &ClipboardSettingsModel::itemsChanged, this, [this] {
        m_itemsStale = true;
        refreshItems();
    });
    followState();
}

void ClipboardSettingsView::showEvent(QShowEvent* event)
{
    SettingsPageWidget::showEvent(event);
    refreshItems();
}

void ClipboardSettingsView::refresh()
{
    m_historyEnabled->setTitle(
        localized(language(), "Keep local clipboard history", "Хранить локальную историю буфера"));
    static_cast<SettingsSwitch*>(m_historyEnabled->control())->setCheckedQuietly(m_model->historyEnabled());
    m_limit->setTitle(m_model->limitText());
    m_stepDown->setEnabled(m_model->canStep(-1));
    m_stepUp->setEnabled(m_model->canStep(+1));
    m_days->setTitle(localized(language(), "Keep for days", "Хранить дней"));
    static_cast<QLabel*>(m_days->control())->setText(m_model->daysText());
    m_clear->setText(localized(language(), "Clear history", "Очистить историю"));
    m_recentHeading->setText(localized(language(), "Recent clipboard", "Недавний буфер"));
    m_itemsStale = true;
    refreshItems();
}

void ClipboardSettingsView::refreshItems()
{
    if (!m_itemsStale || !isVisible()) {
        return;
    }
    m_itemsStale = false;
    discardRows(m_items->rows());
    if (m_model->items().isEmpty()) {
        auto* empty = new SettingsRow(nullptr);
        empty->setTitle(localized(language(), "Clipboard history is empty.", "История буфера пуста."));
        m_items->addRow(empty);
        return;
    }
    const QColor ink = palette().color(QPalette::WindowText);
    for (const ClipboardHistoryItem& item : m_model->items()) {
        auto* buttons = new QWidget;
        auto* buttonsLayout = new QHBoxLayout(buttons);
        buttonsLayout->setContentsMargins(0, 0, 0, 0);
        buttonsLayout->setSpacing(2);
        auto* putBack = new QToolButton;
        putBack->setIcon(SymbolIcons::icon(QStringLiteral("arrow.turn.down.left"), ink, 16));
        putBack->setAutoRaise(true);
        auto* remove = new QToolButton;
        remove->setIcon(SymbolIcons::icon(QStringLiteral("trash"), QColor(220, 70, 70), 16));
        remove->setAutoRaise(true);
        buttonsLayout->addWidget(putBack);
        buttonsLayout->addWidget(remove);
        auto* row = new SettingsRow(buttons);
        // One line per item: a long text is cut at its first line break and at the row's end.
        const QString firstLine = item.text.section(QLatin1Char('\n'), 0, 0);
        row->setTitle(fontMetrics().elidedText(firstLine, Qt::ElideRight, 520));
        row->titleLabel()->setToolTip(item.text.left(2000));
        const QString id = item.id;
        connect(putBack, &QToolButton::clicked, this, [this, id] { m_model->putBack(id); });
        connect(remove, &QToolButton::clicked, this, [this, id] { m_model->remove(id); });
        m_items->addRow(row);
    }
}
