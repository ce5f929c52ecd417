#include "shell/settings/views/ClipboardSettingsPage.h"

#include "core/MivoraAppState.h"
#include "shell/settings/ClipboardSettingsModel.h"
#include "shell/settings/views/SettingsPageKit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

ClipboardSettingsPage::ClipboardSettingsPage(MivoraAppState& appState, ClipboardHistoryService& history,
                                             Pasteboard& pasteboard, QWidget* parent)
    : QWidget(parent), m_appState(appState),
      m_model(new ClipboardSettingsModel(appState, history, pasteboard, this))
{
    m_historyEnabled = new QCheckBox(this);
    m_limit = new QLabel(this);
    m_stepDown = new QToolButton(this);
    m_stepDown->setText(QStringLiteral("−"));
    m_stepUp = new QToolButton(this);
    m_stepUp->setText(QStringLiteral("+"));
    m_daysLabel = new QLabel(this);
    m_days = new QLabel(this);
    m_clear = new QPushButton(this);
    m_recentTitle = new QLabel(this);
    QFont heading = m_recentTitle->font();
    heading.setWeight(QFont::DemiBold);
    m_recentTitle->setFont(heading);
    m_items = new QWidget(this);
    m_itemsLayout = new QVBoxLayout(m_items);
    m_itemsLayout->setContentsMargins(0, 0, 0, 0);
    m_itemsLayout->setSpacing(4);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->addWidget(m_historyEnabled, 0, 0, 1, 3);
    grid->addWidget(m_limit, 1, 0);
    auto* stepper = new QHBoxLayout;
    stepper->setSpacing(2);
    stepper->addWidget(m_stepDown);
    stepper->addWidget(m_stepUp);
    grid->addLayout(stepper, 1, 1, Qt::AlignLeft);
    grid->addWidget(m_daysLabel, 2, 0);
    grid->addWidget(m_days, 2, 1);
    grid->addWidget(m_clear, 3, 0, Qt::AlignLeft);
    grid->setColumnStretch(2, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addWidget(m_recentTitle);
    layout->addWidget(m_items);
    layout->addStretch();

    connect(m_historyEnabled, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_refreshing) {
            m_model->setHistoryEnabled(on);
        }
    });
    connect(m_stepDown, &QToolButton::clicked, this, [this] { m_model->step(-1); });
    connect(m_stepUp, &QToolButton::clicked, this, [this] { m_model->step(+1); });
    connect(m_clear, &QPushButton::clicked, this, [this] { m_model->clearHistory(); });
    connect(m_model, &ClipboardSettingsModel::settingsChanged, this, [this] {
        refresh();
        m_itemsStale = true;
        refreshItems();
    });
    connect(m_model, &ClipboardSettingsModel::itemsChanged, this, [this] {
        m_itemsStale = true;
        refreshItems();
    });
    refresh();
}

void ClipboardSettingsPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refreshItems();
}

void ClipboardSettingsPage::refresh()
{
    m_refreshing = true;
    const UiLanguage language = m_appState.settings().uiLanguage;
    m_historyEnabled->setText(
        localized(language, "Keep local clipboard history", "Хранить локальную историю буфера"));
    m_historyEnabled->setChecked(m_model->historyEnabled());
    m_limit->setText(m_model->limitText());
    m_stepDown->setEnabled(m_model->canStep(-1));
    m_stepUp->setEnabled(m_model->canStep(+1));
    m_daysLabel->setText(localized(language, "Keep for days", "Хранить дней"));
    m_days->setText(m_model->daysText());
    m_clear->setText(localized(language, "Clear history", "Очистить историю"));
    m_recentTitle->setText(localized(language, "Recent clipboard", "Недавний буфер"));
    m_refreshing = false;
}

void ClipboardSettingsPage::refreshItems()
{
    if (!m_itemsStale || !isVisible()) {
        return;
    }
    m_itemsStale = false;
    discardRows(m_itemsLayout);
    const UiLanguage language = m_appState.settings().uiLanguage;
    if (m_model->items().isEmpty()) {
        m_itemsLayout->addWidget(
            new QLabel(localized(language, "Clipboard history is empty.", "История буфера пуста."), m_items));
        return;
    }
    const QColor ink = palette().color(QPalette::WindowText);
    for (const ClipboardHistoryItem& item : m_model->items()) {
        auto* row = new QWidget(m_items);
        auto* rowLayout = new QHBoxLayout(row);
        rowLayout->setContentsMargins(0, 0, 0, 0);
        auto* text = new QLabel(row);
        // One line per item: long texts are cut at the first line break and at the row's end.
        const QString firstLine = item.text.section(QLatin1Char('\n'), 0, 0);
        text->setText(fontMetrics().elidedText(firstLine, Qt::ElideRight, 520));
        text->setToolTip(item.text.left(2000));
        auto* putBack = new QToolButton(row);
        putBack->setIcon(settingsSymbol(QStringLiteral("arrow.turn.down.left"), ink));
        putBack->setAutoRaise(true);
        auto* remove = new QToolButton(row);
        remove->setIcon(settingsSymbol(QStringLiteral("trash"), QColor(220, 70, 70)));
        remove->setAutoRaise(true);
        rowLayout->addWidget(text, 1);
        rowLayout->addWidget(putBack);
        rowLayout->addWidget(remove);
        const QString id = item.id;
        connect(putBack, &QToolButton::clicked, this, [this, id] { m_model->putBack(id); });
        connect(remove, &QToolButton::clicked, this, [this, id] { m_model->remove(id); });
        m_itemsLayout->addWidget(row);
    }
}
