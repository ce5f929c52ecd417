#pragma once

#include "panels/SavedPanelSize.h"

// A panel size under "<prefix>.width" and "<prefix>.height" for panels that distrust a stored size below
// their minimum: such a size, or none, opens at the default instead of being stretched. GUI thread.
class RememberedPanelSize {
public:
    RememberedPanelSize(DefaultsStore& defaults, const QString& keyPrefix, SavedPanelSize::Limits limits);

    // The stored size capped at the maximum when both sides reach the minimum; the fallback otherwise.
    QSize load() const;
    // Stores the size, raised to the minimum.
    void save(QSize size);
    const SavedPanelSize::Limits& limits() const { return m_limits; }

private:
    DefaultsStore& m_defaults;
    QString m_widthKey;
    QString m_heightKey;
    SavedPanelSize::Limits m_limits;
};
