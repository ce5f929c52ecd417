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

SavedPanelSize::SavedPanelSize(DefaultsStore& defaults, const QString& keyPrefix, Limits limits)
    : m_defaults(defaults), m_widthKey(keyPrefix + QStringLiteral(".width")),
      m_heightKey(keyPrefix + QStringLiteral(".height")), m_limits(limits)
{}

QSize SavedPanelSize::load() const
{
    const auto width = storedDimension(m_defaults, m_widthKey);
    const auto height = storedDimension(m_defaults, m_heightKey);
    if (!width || !height) {
        return clamped(m_limits.fallback);
    }
    return clamped(QSize(int(std::lround(*width)), int(std::lround(*height))));
}

void SavedPanelSize::save(QSize size)
{
    const QSize kept = clamped(size);
    // Panels save at every hide; an unchanged size writes nothing, since a write may cost a whole file.
    if (storedDimension(m_defaults, m_widthKey) == double(kept.width()) &&
        storedDimension(m_defaults, m_heightKey) == double(kept.height())) {
        return;
    }
    m_defaults.setValue(m_widthKey, double(kept.width()));
    m_defaults.setValue(m_heightKey, double(kept.height()));
}

QSize SavedPanelSize::clamped(QSize size) const
{
    return {std::clamp(size.width(), m_limits.minimum.width(), m_limits.maximum.width()),
            std::clamp(size.height(), m_limits.minimum.height(), m_limits.maximum.height())};
}
