#include "backend/WireRequest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

namespace {

enum class Kind { string, boolean };

struct Field {
    const char* key;
    Kind kind;
    QString WireRequest::*text = nullptr;
    bool WireRequest::*flag = nullptr;
};

// Every key the client always sends; the two optional ones are handled apart.
const Field requiredFields[] = {
    {"action", Kind::string, &WireRequest::action},
    {"model", Kind::string},
    {"preferredModel", Kind::string},
    {"fallbackModel", Kind::string},
    {"text", Kind::string, &WireRequest::text},
    {"sourceText", Kind::string},
    {"targetLanguage", Kind::string, &WireRequest::targetLanguage},
    {"keyboardLanguage", Kind::string, &WireRequest::keyboardLanguage},
    {"writingStyle", Kind::string, &WireRequest::writingStyle},
    {"styleId", Kind::string},
    {"gender", Kind::string},
    {"voiceGender", Kind::string},
    {"userInstruction", Kind::string, &WireRequest::userInstruction},
    {"replyTo", Kind::string, &WireRequest::replyTo},
    {"assistantSessionId", Kind::string, &WireRequest::assistantSessionId},
    {"assistantKeepContext", Kind::boolean},
    {"keepContext", Kind::boolean, nullptr, &WireRequest::keepContext},
    {"mode", Kind::string},
    {"task", Kind::string},
    {"rewriteMode", Kind::string},
    {"replyMode", Kind::string},
};

QString typeName(Kind kind)
{
    return kind == Kind::string ? QStringLiteral("a string") : QStringLiteral("true or false");
}

bool hasType(const QJsonValue& value, Kind kind)
{
    return kind == Kind::string ? value.isString() : value.isBool();
}

} // namespace

std::variant<WireRequest, QString> WireRequest::parse(const QByteArray& body)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        return QStringLiteral("The request body must be a JSON object.");
    }
    const QJsonObject object = document.object();
    WireRequest request;
    for (const Field& field : requiredFields) {
        const QJsonValue value = object.value(QLatin1StringView(field.key));
        if (value.isUndefined()) {
            return QStringLiteral("The request lacks \"%1\".").arg(QLatin1StringView(field.key));
        }
        if (!hasType(value, field.kind)) {
            return QStringLiteral("\"%1\" must be %2.")
                .arg(QLatin1StringView(field.key), typeName(field.kind));
        }
        if (field.text != nullptr) {
            request.*field.text = value.toString();
        }
        if (field.flag != nullptr) {
            request.*field.flag = value.toBool();
        }
    }
    const QJsonValue force = object.value(QLatin1StringView("forceRewrite"));
    if (!force.isUndefined() && !force.isNull() && !force.isBool()) {
        return QStringLiteral("\"forceRewrite\" must be true or false.");
    }
    request.forceRewrite = force.toBool(false);
    const QJsonValue intensity = object.value(QLatin1StringView("styleIntensity"));
    if (!intensity.isUndefined() && !intensity.isNull() && !intensity.isString()) {
        return QStringLiteral("\"styleIntensity\" must be a string.");
    }
    request.styleIntensity = intensity.toString();
    return request;
}
