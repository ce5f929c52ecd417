#include "panels/SavedPanelSize.h"

#include "core/DefaultsStore.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

std::optional<double> storedDimension(const DefaultsStore& defaults, const QString& key)
{
    bool ok = false;
    const double value = defaults.value(key).toDouble(&ok);
    if (!ok || !std::isfinite(value) || value <= 0) {
        return std::nullopt;
    }
    return value;
}

} // namespace

SavedPanelSize::SavedPanelSize(DefaultsStore& defaults, const QString& keyPrefix, Limits limits,
                               SavedHeight savedHeight)
    : m_defaults(defaults), m_widthKey(keyPrefix + QStringLiteral(".width")),
      m_heightKey(keyPrefix + QStringLiteral(".height")), m_limits(limits), m_savedHeight(savedHeight)
{}

QSize SavedPanelSize::load() const
{
    const auto width = storedDimension(m_defaults, m_widthKey);
    const auto height = storedDimension(m_defaults, m_heightKey);
    if (!width || !height || *width < m_limits.minimum.width() || *height < m_limits.minimum.height()) {
        return m_limits.fallback;
    }
    return {int(std::lround(std::min(*width, double(m_limits.maximum.width())))),
            int(std::lround(std::min(*height, double(m_limits.maximum.height()))))};
}

void SavedPanelSize::save(QSize size)
{
    QSize kept = size.expandedTo(m_limits.minimum);
    if (m_savedHeight == SavedHeight::cappedAtMaximum) {
        kept.setHeight(std::min(kept.height(), m_limits.maximum.height()));
    }
    // Panels save at every hide; an unchanged size writes nothing, since a write may cost a whole file.
    if (storedDimension(m_defaults, m_widthKey) == double(kept.width()) &&
        storedDimension(m_defaults, m_heightKey) == double(kept.height())) {
        return;
    }
    m_defaults.setValue(m_widthKey, double(kept.width()));
    m_defaults.setValue(m_heightKey, double(kept.height()));
}
