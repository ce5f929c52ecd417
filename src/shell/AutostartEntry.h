#pragma once

#include <QString>

// The desktop's autostart entry for this program (an XDG ".desktop" file under the user's configuration
// folder): present means the program starts at login. GUI thread; small file I/O.
class AutostartEntry {
public:
    // directory is the autostart folder ("~/.config/autostart"); executable is what the entry runs.
    AutostartEntry(QString directory, QString executable);

    // The entry in the user's own autostart folder for the running program.
    static AutostartEntry forCurrentUser();

    bool isEnabled() const;
    // Writes the entry atomically, or removes it; false when the file system refused.
    bool setEnabled(bool enabled);
    QString filePath() const;

private:
    QString m_directory;
    QString m_executable;
};
