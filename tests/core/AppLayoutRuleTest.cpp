#include "core/AppLayoutRule.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

AppLayoutRule rule(const char* bundle, bool enabled)
{
    return AppLayoutRule{
        QUuid::createUuid(), QString::fromUtf8(bundle), "Editor", "/opt/editor", "Русская — ПК", enabled};
}

QJsonArray encoded(const QList<AppLayoutRule>& rules)
{
    return QJsonDocument::fromJson(AppLayoutRule::encodeList(rules)).array();
}

TEST(AppLayoutRuleJson, RoundTripsWithTheIdInUpperCaseTextAndOneFaultyElementFailsTheWholeArray)
{
    const QList<AppLayoutRule> rules{rule("org.example.a", true), rule("org.example.b", false)};
    EXPECT_EQ(AppLayoutRule::decodeList(AppLayoutRule::encodeList(rules)), rules);
    const QJsonObject first = encoded(rules).first().toObject();
    EXPECT_EQ(first.size(), 6);
    EXPECT_EQ(first.value(QLatin1String("id")).toString(),
              rules[0].id.toString(QUuid::WithoutBraces).toUpper());

    const auto withSecond = [&](const char* key, const QJsonValue& value) {
        QJsonArray array = encoded(rules);
        QJsonObject second = array.at(1).toObject();
        if (value.isUndefined()) {
            second.remove(QLatin1String(key));
        } else {
            second.insert(QLatin1String(key), value);
        }
        array.replace(1, second);
        return AppLayoutRule::decodeList(QJsonDocument(array).toJson());
    };

    for (const char* key : {"id", "bundleIdentifier", "appName", "appPath", "layoutName", "isEnabled"}) {
        EXPECT_FALSE(withSecond(key, QJsonValue(QJsonValue::Undefined)).has_value()) << key;
    }
    EXPECT_FALSE(withSecond("isEnabled", "true").has_value());
    EXPECT_FALSE(withSecond("id", "not-a-uuid").has_value());
    EXPECT_FALSE(withSecond("id", "{6f1d3b8e-3c1a-4c1e-9f7a-0a1b2c3d4e5f}").has_value());
    EXPECT_TRUE(withSecond("id", "00000000-0000-0000-0000-000000000000").has_value());
    // Ids in lower case are read as well.
    EXPECT_EQ(withSecond("id", rules[1].id.toString(QUuid::WithoutBraces)), rules);
    EXPECT_FALSE(AppLayoutRule::decodeList("{}").has_value());
    EXPECT_EQ(AppLayoutRule::decodeList("[]"), QList<AppLayoutRule>{});
}

} // namespace
