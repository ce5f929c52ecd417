#pragma once

#include <QSize>
#include <QString>

class DefaultsStore;

// A panel's size as the user left it, kept under "<prefix>.width" and "<prefix>.height" as doubles. A stored
// size short of the minimum on either side is not trusted: the panel opens at its fallback instead of being
// stretched; one beyond the maximum opens capped. GUI thread.
class SavedPanelSize {
public:
    struct Limits {
        QSize minimum;
        QSize maximum;
        QSize fallback;
    };
    // Whether a size taller than the maximum is stored as it is (it still opens capped) or capped already.
    enum class SavedHeight { asResized, cappedAtMaximum };

    SavedPanelSize(DefaultsStore& defaults, const QString& keyPrefix, Limits limits,
                   SavedHeight savedHeight = SavedHeight::asResized);

    // The stored size capped at the maximum when both sides reach the minimum; the fallback otherwise.
    QSize load() const;
    // Stores the size, raised to the minimum and, when so made, its height capped at the maximum.
    void save(QSize size);
    const Limits& limits() const { return m_limits; }

private:
    DefaultsStore& m_defaults;
    QString m_widthKey;
    QString m_heightKey;
    Limits m_limits;
    SavedHeight m_savedHeight;
};
