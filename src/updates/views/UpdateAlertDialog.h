#pragma once

#include "core/UiLanguage.h"
#include "updates/UpdateAlertPresenter.h"

#include <QMessageBox>
#include <functional>

class AppUpdateManager;

// The alert for update news: the manager's text, an install button when the update can be downloaded, and
// a plain dismissal. It never blocks: the program keeps running while it is up. Either way out clears the
// manager's alert; install also runs the update button's action.
class UpdateAlertDialog : public QMessageBox, public UpdateAlertPresenter {
    Q_OBJECT
public:
    // The manager must outlive the dialog; language gives the interface language of the moment.
    UpdateAlertDialog(AppUpdateManager& manager, std::function<UiLanguage()> language,
                      QWidget* parent = nullptr);

    // Shows the text, replacing an alert that is still up.
    void showUpdateAlert(const QString& text) override;

private:
    void answered(QAbstractButton* button);

    AppUpdateManager& m_manager;
    std::function<UiLanguage()> m_language;
    QAbstractButton* m_install = nullptr;
};
