#pragma once

#include "core/UiLanguage.h"
#include "platform/ApplicationCatalog.h"

#include <QDialog>
#include <optional>

class QListWidget;

// The chooser of "Add application": the installed applications with their icons and names, one to pick.
class ApplicationChooserDialog : public QDialog {
    Q_OBJECT
public:
    ApplicationChooserDialog(ApplicationCatalog& catalog, UiLanguage language, QWidget* parent = nullptr);

    // Shows the chooser modally; nullopt when it is cancelled or nothing is picked.
    static std::optional<InstalledApplication> choose(ApplicationCatalog& catalog, UiLanguage language,
                                                      QWidget* parent);
    // The picked application, once accepted.
    std::optional<InstalledApplication> chosen() const;
    // Picks the first application of that name; false when none has it.
    bool selectByName(const QString& name);

    // The icon an entry names: an image file or an icon of the desktop theme; otherwise a tile with the
    // initial of name.
    static QIcon iconOf(const QString& icon, const QString& name);

private:
    QList<InstalledApplication> m_applications;
    QListWidget* m_list = nullptr;
};
