#include "shell/settings/views/SettingsPageKit.h"

#include <QLabel>
#include <QLayout>

QLabel* makeNote(QWidget* parent)
{
    auto* note = new QLabel(parent);
    note->setWordWrap(true);
    QFont small = note->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    note->setFont(small);
    return note;
}

void discardRows(QLayout* layout)
{
    while (QLayoutItem* old = layout->takeAt(0)) {
        if (QWidget* widget = old->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        delete old;
    }
}
