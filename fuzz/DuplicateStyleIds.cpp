#include "DuplicateStyleIds.h"

#include "core/AIReplyStyle.h"
#include "core/DefaultsStore.h"
#include "core/JsonCoding.h"
#include "core/PromptStyle.h"

#include <QSet>

namespace {

template <typename Style> bool hasDuplicateIds(const DefaultsStore& defaults, const QString& key)
{
    const QVariant value = defaults.value(key);
    QByteArray json;
    if (value.typeId() == QMetaType::QByteArray) {
        json = value.toByteArray();
    } else if (value.typeId() == QMetaType::QString) {
        json = value.toString().toUtf8();
    } else {
        return false;
    }
    const std::optional<QList<Style>> styles = JsonCoding::decodeArray<Style>(json, &Style::fromJson);
    QSet<QString> ids;
    for (const Style& style : styles.value_or(QList<Style>())) {
        if (ids.contains(style.id)) {
            return true;
        }
        ids.insert(style.id);
    }
    return false;
}

} // namespace

bool storesDuplicateStyleIds(const DefaultsStore& defaults)
{
    return hasDuplicateIds<PromptStyle>(defaults, QStringLiteral("mivora.promptStyles")) ||
           hasDuplicateIds<AIReplyStyle>(defaults, QStringLiteral("mivora.aiReplyStyles"));
}
