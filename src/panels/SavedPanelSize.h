#pragma once

#include <QSize>
#include <QString>

class DefaultsStore;

// A panel's size as the user left it, kept under "<prefix>.width" and "<prefix>.height" as doubles and
// always within the panel's own limits. GUI thread.
class SavedPanelSize {
public:
    struct Limits {
        QSize minimum;
        QSize maximum;
        QSize fallback;
    };

    SavedPanelSize(DefaultsStore& defaults, const QString& keyPrefix, Limits limits);

    // The stored size clamped to the limits; the fallback when nothing usable is stored.
    QSize load() const;
    // Stores the size clamped to the limits.
    void save(QSize size);
    const Limits& limits() const { return m_limits; }

private:
    QSize clamped(QSize size) const;

    DefaultsStore& m_defaults;
    QString m_widthKey;
    QString m_heightKey;
    Limits m_limits;
};
