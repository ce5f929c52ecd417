#include "panels/RememberedPanelSize.h"

#include "core/DefaultsStore.h"

#include <algorithm>
#include <cmath>

RememberedPanelSize::RememberedPanelSize(DefaultsStore& defaults, const QString& keyPrefix,
                                         SavedPanelSize::Limits limits)
    : m_defaults(defaults), m_widthKey(keyPrefix + QStringLiteral(".width")),
      m_heightKey(keyPrefix + QStringLiteral(".height")), m_limits(limits)
{}

QSize RememberedPanelSize::load() const
{
    // A missing or unreadable key reads as 0 and so falls short of the minimum.
    const double width = m_defaults.value(m_widthKey).toDouble();
    const double height = m_defaults.value(m_heightKey).toDouble();
    if (!std::isfinite(width) || !std::isfinite(height) || width < m_limits.minimum.width() ||
        height < m_limits.minimum.height()) {
        return m_limits.fallback;
    }
    return {int(std::lround(std::min(width, double(m_limits.maximum.width())))),
            int(std::lround(std::min(height, double(m_limits.maximum.height()))))};
}

void RememberedPanelSize::save(QSize size)
{
    m_defaults.setValue(m_widthKey, double(std::max(size.width(), m_limits.minimum.width())));
    m_defaults.setValue(m_heightKey, double(std::max(size.height(), m_limits.minimum.height())));
}
