#include "clipboard/views/ClipboardSidePreview.h"

#include "clipboard/views/ClipboardSymbols.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <cmath>

namespace {

bool sameActions(const QList<ClipboardSidePreview::Action>& a, const QList<ClipboardSidePreview::Action>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.symbol == y.symbol && x.label == y.label && x.destructive == y.destructive;
    });
}

} // namespace

ClipboardSidePreview::ClipboardSidePreview(QWidget* parent)
    : QWidget(parent), m_title(new QLabel(this)), m_count(new QLabel(this)), m_empty(new QLabel(this)),
      m_text(new QPlainTextEdit(this)), m_actionsRow(new QWidget(this)),
      m_actions(new QHBoxLayout(m_actionsRow))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 0, 0, 0);
    auto* heading = new QHBoxLayout;
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    heading->addWidget(m_title);
    heading->addStretch();
    heading->addWidget(m_count);
    layout->addLayout(heading);
    m_text->setReadOnly(true);
    m_text->setFocusPolicy(Qt::NoFocus);
    m_text->setFrameShape(QFrame::NoFrame);
    layout->addWidget(m_text, 1);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    layout->addWidget(m_empty, 1);
    m_actions->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_actionsRow);
}

void ClipboardSidePreview::setFrame(const QString& title, const QList<Action>& actions,
                                    const QString& emptyText)
{
    m_title->setText(title);
    m_empty->setText(emptyText);
    if (sameActions(actions, m_shownActions)) {
        return;
    }
    m_shownActions = actions;
    while (QLayoutItem* item = m_actions->takeAt(0)) {
        // Later: the button may be the one whose click is being handled.
        if (QWidget* widget = item->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        delete item;
    }
    for (int index = 0; index < actions.size(); ++index) {
        QToolButton* button = ClipboardSymbols::button(actions.at(index).symbol, m_actionsRow);
        ClipboardSymbols::setSymbol(button, actions.at(index).symbol, actions.at(index).destructive);
        button->setText(actions.at(index).label);
        button->setToolTip(actions.at(index).label);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        connect(button, &QToolButton::clicked, this, [this, index] { emit actionTriggered(index); });
        m_actions->addWidget(button);
    }
    m_actions->addStretch();
}

void ClipboardSidePreview::showEntry(const std::optional<ClipboardListEntry>& entry, const QString& countText,
                                     double fontSize)
{
    QFont font = m_text->font();
    if (font.pixelSize() != int(std::lround(fontSize))) {
        font.setPixelSize(int(std::lround(fontSize)));
        m_text->setFont(font);
    }
    m_text->setVisible(entry.has_value());
    m_actionsRow->setVisible(entry.has_value());
    m_count->setVisible(entry.has_value());
    m_empty->setVisible(!entry.has_value());
    m_count->setText(countText);
    const bool same = entry && m_entry && entry->id == m_entry->id &&
                      entry->text.size() == m_entry->text.size() &&
                      entry->text.constData() == m_entry->text.constData();
    if (!same) {
        m_text->setPlainText(entry ? entry->text : QString());
    }
    m_entry = entry;
}
