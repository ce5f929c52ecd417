#include "shell/settings/views/ApplicationChooserDialog.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

ApplicationChooserDialog::ApplicationChooserDialog(ApplicationCatalog& catalog, UiLanguage language,
                                                   QWidget* parent)
    : QDialog(parent), m_applications(catalog.installedApplications())
{
    setWindowTitle(localized(language, "Choose an application", "Выберите приложение"));
    setModal(true);
    resize(420, 480);
    m_list = new QListWidget(this);
    m_list->setIconSize(QSize(24, 24));
    for (const InstalledApplication& application : m_applications) {
        new QListWidgetItem(iconOf(application.icon, application.name), application.name, m_list);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* add = buttons->button(QDialogButtonBox::Ok);
    add->setText(localized(language, "Add", "Добавить"));
    add->setEnabled(false);
    buttons->button(QDialogButtonBox::Cancel)->setText(localized(language, "Cancel", "Отмена"));
    connect(m_list, &QListWidget::currentRowChanged, add, [add](int row) { add->setEnabled(row >= 0); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addWidget(buttons);
}

std::optional<InstalledApplication> ApplicationChooserDialog::choose(ApplicationCatalog& catalog,
                                                                     UiLanguage language, QWidget* parent)
{
    ApplicationChooserDialog dialog(catalog, language, parent);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog.chosen();
}

std::optional<InstalledApplication> ApplicationChooserDialog::chosen() const
{
    const int row = m_list->currentRow();
    if (result() != QDialog::Accepted || row < 0 || row >= m_applications.size()) {
        return std::nullopt;
    }
    return m_applications[row];
}

bool ApplicationChooserDialog::selectByName(const QString& name)
{
    for (int row = 0; row < m_applications.size(); ++row) {
        if (m_applications[row].name == name) {
            m_list->setCurrentRow(row);
            return true;
        }
    }
    return false;
}

QIcon ApplicationChooserDialog::iconOf(const QString& icon, const QString& name)
{
    QIcon result;
    if (QFileInfo(icon).isAbsolute()) {
        result = QIcon(icon);
    } else if (!icon.isEmpty()) {
        result = QIcon::fromTheme(icon);
    }
    if (!result.isNull()) {
        return result;
    }
    // A tile with the name's initial, so that a row never shows a hole.
    QPixmap tile(64, 64);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv(int(qHash(name) % 360), 110, 190));
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);
    QFont font = painter.font();
    font.setPixelSize(34);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(0, 0, 64, 64), Qt::AlignCenter, name.left(1).toUpper());
    return QIcon(tile);
}
