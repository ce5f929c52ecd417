#include "updates/views/UpdateAlertDialog.h"

#include "updates/AppUpdateManager.h"

#include <QPushButton>

UpdateAlertDialog::UpdateAlertDialog(AppUpdateManager& manager, std::function<UiLanguage()> language,
                                     QWidget* parent)
    : QMessageBox(parent), m_manager(manager), m_language(std::move(language))
{
    setWindowTitle(QStringLiteral("MivoraAI"));
    setIcon(QMessageBox::Information);
    setWindowModality(Qt::NonModal);
    // Escape and the window's close button answer with the dismissal, never with install.
    setEscapeButton(addButton(QMessageBox::Ok));
    connect(this, &QMessageBox::buttonClicked, this, &UpdateAlertDialog::answered);
}

void UpdateAlertDialog::showUpdateAlert(const QString& text)
{
    setText(text);
    const bool downloadable = m_manager.snapshot().downloadURL.has_value();
    if (downloadable && m_install == nullptr) {
        m_install = addButton(QString(), QMessageBox::AcceptRole);
        setDefaultButton(qobject_cast<QPushButton*>(m_install));
    } else if (!downloadable && m_install != nullptr) {
        removeButton(m_install);
        m_install->deleteLater();
        m_install = nullptr;
    }
    if (m_install != nullptr) {
        m_install->setText(localized(m_language(), "Install Update", "Установить обновление"));
    }
    show();
    raise();
    activateWindow();
}

void UpdateAlertDialog::answered(QAbstractButton* button)
{
    if (button != nullptr && button == m_install) {
        m_manager.updateButtonPressed();
    } else {
        m_manager.clearAlertMessage();
    }
}
