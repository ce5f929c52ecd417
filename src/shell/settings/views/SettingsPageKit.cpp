#include "shell/settings/views/SettingsPageKit.h"

#include "panels/views/ThemePainter.h"

#include <QHash>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QPixmap>

namespace {

struct Symbol {
    const char* themeIcon;
    const char* glyph;
};

} // namespace

QIcon settingsSymbol(const QString& name, const QColor& ink, int size)
{
    static const QHash<QString, Symbol> symbols{
        {QStringLiteral("trash"), {"edit-delete", "✕"}},
        {QStringLiteral("arrow.turn.down.left"), {"edit-paste", "↵"}},
        {QStringLiteral("plus"), {"list-add", "+"}},
        {QStringLiteral("arrow.down.circle.fill"), {"software-update-available", "⇩"}},
        {QStringLiteral("arrow.triangle.2.circlepath"), {"view-refresh", "⟳"}},
        {QStringLiteral("exclamationmark.circle"), {"dialog-warning", "!"}},
        {QStringLiteral("clock"), {"", "◔"}},
    };
    const qreal scale = 2;
    QPixmap pixmap(QSize(size, size) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto known = symbols.constFind(name);
    if (known == symbols.constEnd()) {
        ThemePainter::paintSymbol(painter, QRectF(0, 0, size, size), name, ink);
        return QIcon(pixmap);
    }
    if (*known->themeIcon != '\0' && QIcon::hasThemeIcon(QString::fromLatin1(known->themeIcon))) {
        return QIcon::fromTheme(QString::fromLatin1(known->themeIcon));
    }
    QFont font = painter.font();
    font.setPixelSize(size - 2);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRectF(0, 0, size, size), Qt::AlignCenter, QString::fromUtf8(known->glyph));
    return QIcon(pixmap);
}

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
