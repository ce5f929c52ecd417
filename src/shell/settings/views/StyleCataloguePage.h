#pragma once

#include "shell/settings/StyleCatalogueSettingsModel.h"
#include "shell/settings/views/SettingsPageWidget.h"

#include <QList>
#include <QVBoxLayout>

class QLabel;
class QPushButton;

// The shared frame of the Styles and AI Reply pages: a heading with an optional hint, the buttons "Reset"
// and "Add", and one card per style below. Cards are rebuilt only when the list of styles changes, so a
// card being typed in stays the same widget.
class StyleCataloguePage : public SettingsPageWidget {
    Q_OBJECT
protected:
    StyleCataloguePage(MivoraAppState& appState, QWidget* parent);

    // Keeps one card per style in order: reuses cards whose style id is still at the same place, makes the
    // rest with make, and fills each through fill.
    template <typename Card, typename Style, typename Make>
    void syncCards(QList<Card*>& cards, const QList<Style>& styles, Make make)
    {
        bool sameIds = cards.size() == styles.size();
        for (qsizetype i = 0; sameIds && i < styles.size(); ++i) {
            sameIds = cards[i]->styleId() == styles[i].id;
        }
        if (!sameIds) {
            qDeleteAll(cards);
            cards.clear();
            for (qsizetype i = 0; i < styles.size(); ++i) {
                cards.append(make());
                m_cards->addWidget(cards.back());
            }
        }
        for (qsizetype i = 0; i < styles.size(); ++i) {
            cards[i]->retranslate(language());
            cards[i]->setStyle(styles[i]);
        }
    }

    QLabel* m_heading = nullptr;
    QLabel* m_hint = nullptr;
    QPushButton* m_reset = nullptr;
    QPushButton* m_add = nullptr;
    StyleCatalogueSettingsModel m_model;

private:
    QVBoxLayout* m_cards = nullptr;
};
