#include "shell/settings/views/SettingsRow.h"

#include "panels/views/SymbolIcons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

SettingsRow::SettingsRow(QWidget* control, QWidget* parent) : QWidget(parent), m_control(control)
{
    m_title = new QLabel(this);
    m_title->setWordWrap(true);
    m_subtitle = new QLabel(this);
    m_subtitle->setWordWrap(true);
    QFont small = m_subtitle->font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    m_subtitle->setFont(small);
    m_subtitle->setForegroundRole(QPalette::PlaceholderText);
    m_subtitle->hide();

    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(2);
    texts->addWidget(m_title);
    texts->addWidget(m_subtitle);
    m_symbol = new QLabel(this);
    m_symbol->setFixedSize(18, 18);
    m_symbol->hide();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addWidget(m_symbol, 0, Qt::AlignVCenter);
    layout->addLayout(texts, 1);
    if (control) {
        layout->addWidget(control, 0, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void SettingsRow::setTitle(const QString& title)
{
    m_title->setText(title);
}

void SettingsRow::setSymbol(const QString& symbolName)
{
    if (symbolName.isEmpty()) {
        m_symbol->hide();
        return;
    }
    m_symbol->setPixmap(
        SymbolIcons::drawn(symbolName, palette().color(QPalette::WindowText), 18, devicePixelRatioF()));
    m_symbol->show();
}

void SettingsRow::setSubtitle(const QString& subtitle)
{
    m_subtitle->setText(subtitle);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

void SettingsRow::setTitleWidth(int minimum, int maximum)
{
    m_title->setMinimumWidth(minimum);
    m_title->setMaximumWidth(maximum);
}
