#pragma once

#include <QString>

// Shows update news the user must notice (an alert rather than inline text).
class UpdateAlertPresenter {
public:
    virtual ~UpdateAlertPresenter() = default;

    // GUI thread, non-blocking: the alert stays up on its own until the user dismisses it.
    virtual void showUpdateAlert(const QString& text) = 0;
};
