#include "shell/settings/views/StyleCataloguePage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

StyleCataloguePage::StyleCataloguePage(MivoraAppState& appState, QWidget* parent)
    : SettingsPageWidget(appState, parent), m_model(appState)
{
    m_heading = new QLabel(this);
    QFont font = m_heading->font();
    font.setWeight(QFont::DemiBold);
    font.setPointSizeF(font.pointSizeF() * 1.15);
    m_heading->setFont(font);
    m_hint = new QLabel(this);
    m_hint->setWordWrap(true);
    m_hint->hide();
    m_reset = new QPushButton(this);
    m_add = new QPushButton(this);

    auto* titles = new QVBoxLayout;
    titles->setSpacing(2);
    titles->addWidget(m_heading);
    titles->addWidget(m_hint);
    auto* header = new QHBoxLayout;
    header->addLayout(titles, 1);
    header->addWidget(m_reset, 0, Qt::AlignTop);
    header->addWidget(m_add, 0, Qt::AlignTop);
    column()->addLayout(header);
    m_cards = new QVBoxLayout;
    m_cards->setSpacing(10);
    column()->addLayout(m_cards);
}
