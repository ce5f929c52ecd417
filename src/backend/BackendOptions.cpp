#include "backend/BackendOptions.h"

#include <QCommandLineParser>

namespace {

struct OptionSpec {
    const char* name;
    const char* variable;
    const char* valueName;
    const char* help;
};

const OptionSpec specs[] = {
    {"listen", "MIVORA_BACKEND_LISTEN", "address", "Address to listen on (default 127.0.0.1)."},
    {"port", "MIVORA_BACKEND_PORT", "port", "Port to listen on (default 8787)."},
    {"token", "MIVORA_BACKEND_TOKEN", "token", "Token every client must send (required)."},
    {"upstream-url", "MIVORA_UPSTREAM_URL", "url",
     "Base URL of the OpenAI-compatible model server, up to /v1 (default http://127.0.0.1:11434/v1)."},
    {"model", "MIVORA_UPSTREAM_MODEL", "model", "Model name on the model server (required)."},
    {"api-key", "MIVORA_UPSTREAM_API_KEY", "key", "API key of the model server, if it needs one."},
    {"release-file", "MIVORA_RELEASE_FILE", "path", "JSON file describing the latest release."},
    {"max-concurrent", "MIVORA_BACKEND_MAX_CONCURRENT", "count", "Model calls at once (default 8)."},
    {"requests-per-minute", "MIVORA_BACKEND_RATE", "count", "Requests per device and minute (default 60)."},
};

std::optional<int> positive(const QString& text, int fallback, int maximum)
{
    if (text.isEmpty()) {
        return fallback;
    }
    bool valid = false;
    const int value = text.toInt(&valid);
    return valid && value > 0 && value <= maximum ? std::optional<int>(value) : std::nullopt;
}

} // namespace

std::variant<BackendOptions, BackendOptions::Stop>
BackendOptions::parse(const QStringList& arguments, const QProcessEnvironment& environment)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("AI backend for MivoraAI. Every option may instead be given "
                       "in the environment variable named in brackets."));
    const QCommandLineOption help = parser.addHelpOption();
    for (const OptionSpec& spec : specs) {
        parser.addOption(QCommandLineOption(
            QString::fromLatin1(spec.name),
            QStringLiteral("%1 [%2]").arg(QLatin1StringView(spec.help), QLatin1StringView(spec.variable)),
            QString::fromLatin1(spec.valueName)));
    }
    if (!parser.parse(arguments)) {
        return Stop{parser.errorText()};
    }
    if (parser.isSet(help)) {
        return Stop{parser.helpText(), true};
    }
    const auto value = [&](const OptionSpec& spec) {
        const QString name = QString::fromLatin1(spec.name);
        return parser.isSet(name) ? parser.value(name)
                                  : environment.value(QString::fromLatin1(spec.variable));
    };
    BackendOptions options;
    const QString listen = value(specs[0]);
    if (!listen.isEmpty() && !options.listenAddress.setAddress(listen)) {
        return Stop{QStringLiteral("--listen: \"%1\" is not an IP address.").arg(listen)};
    }
    const std::optional<int> port = positive(value(specs[1]), 8787, 65535);
    if (!port) {
        return Stop{QStringLiteral("--port must be a number from 1 to 65535.")};
    }
    options.port = quint16(*port);
    options.ai.token = value(specs[2]);
    if (options.ai.token.isEmpty()) {
        return Stop{QStringLiteral("A token is required: --token or MIVORA_BACKEND_TOKEN.")};
    }
    options.upstream.baseUrl = value(specs[3]);
    if (options.upstream.baseUrl.isEmpty()) {
        options.upstream.baseUrl = QStringLiteral("http://127.0.0.1:11434/v1");
    }
    options.upstream.model = value(specs[4]);
    if (options.upstream.model.isEmpty()) {
        return Stop{QStringLiteral("A model is required: --model or MIVORA_UPSTREAM_MODEL.")};
    }
    options.upstream.apiKey = value(specs[5]);
    options.releaseFile = value(specs[6]);
    const std::optional<int> concurrent = positive(value(specs[7]), 8, 1024);
    const std::optional<int> rate = positive(value(specs[8]), 60, 10'000'000);
    if (!concurrent || !rate) {
        return Stop{QStringLiteral("--max-concurrent and --requests-per-minute must be positive numbers.")};
    }
    options.ai.maxConcurrentUpstreamCalls = *concurrent;
    options.ai.maxRequestsPerDevicePerMinute = *rate;
    return options;
}
