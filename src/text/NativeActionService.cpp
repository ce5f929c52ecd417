#include "text/NativeActionService.h"

#include "core/MivoraPromptLibrary.h"
#include "text/MivoraCoreError.h"

NativeActionService::NativeActionService(std::unique_ptr<BackendClient> backend)
    : m_backend(std::move(backend))
{}

QCoro::Task<QString> NativeActionService::run(QuickAction action, QString input, QString targetLanguage,
                                              QList<PromptStyle> styles)
{
    if (action.id == QLatin1StringView("ai")) {
        throw MivoraCoreError::actionNotPortedYet(QStringLiteral("AI assistant"));
    }
    if (action.id == QLatin1StringView("clipboard")) {
        throw MivoraCoreError::actionNotPortedYet(QStringLiteral("Clipboard window"));
    }
    if (action.id == QLatin1StringView("layout")) {
        throw MivoraCoreError::actionNotPortedYet(QStringLiteral("Keyboard layout fix"));
    }
    const std::optional<QString> styleId = action.styleId();
    const std::optional<PromptStyle> style =
        styleId ? MivoraPromptLibrary::style(*styleId, styles) : std::optional<PromptStyle>();
    if (!style) {
        throw MivoraCoreError::actionNotPortedYet(QStringLiteral("Style ") + action.id);
    }
    const BackendAction backendAction = MivoraPromptLibrary::backendAction(action, *style);
    co_return co_await m_backend->send(input, backendAction, *style, targetLanguage, true);
}
