#include "panels/AssistantPanelController.h"

#include "core/MivoraAppState.h"
#include "core/MivoraError.h"
#include "panels/PanelBackend.h"
#include "panels/PanelExchange.h"
#include "text/CharacterMap.h"

namespace {

const QString notAssigned = QStringLiteral("Not assigned");

QString newSessionId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

} // namespace

AssistantPanelController::AssistantPanelController(Services services, SurfaceFactory makeSurface,
                                                   QObject* parent)
    : QObject(parent), m_services(services), m_surface(std::move(makeSurface)),
      m_size(services.defaults, QStringLiteral("mivora.assistantPanel"),
             {minPanelSize, QSize(920, 900), QSize(620, 680)}),
      m_assistantSessionId(newSessionId())
{
    MivoraAppState& state = m_services.appState;
    syncAppearance();
    syncSettings();
    // The reply language comes from the settings once: a language picked in the panel stays the panel's.
    m_replyTranslationLanguage = state.settings().targetLanguage;
    connect(&state, &MivoraAppState::settingsChanged, this, [this] {
        syncSettings();
        emit changed();
    });
    connect(&state, &MivoraAppState::aiReplyStylesChanged, this, [this] {
        syncSettings();
        emit changed();
    });
    connect(&state, &MivoraAppState::systemSurfaceModeChanged, this, [this] {
        m_surfaceMode = m_services.appState.systemSurfaceMode();
        emit changed();
    });
}

AssistantPanelController::~AssistantPanelController() = default;

void AssistantPanelController::syncAppearance()
{
    const MivoraAppState& state = m_services.appState;
    m_appearanceMode = state.settings().appearanceMode;
    m_uiLanguage = state.settings().uiLanguage;
    m_surfaceMode = state.systemSurfaceMode();
}

void AssistantPanelController::syncSettings()
{
    const MivoraAppState& state = m_services.appState;
    m_appearanceMode = state.settings().appearanceMode;
    m_uiLanguage = state.settings().uiLanguage;
    m_contextEnabled = state.settings().aiContextEnabled;
    m_replyStyles = state.aiReplyStyles();
}

int AssistantPanelController::contextCharacterCount() const
{
    int count = 0;
    forEachCharacter(m_contextText, [&count](QStringView) { ++count; });
    return count;
}

void AssistantPanelController::report(ActionStatus status)
{
    m_services.appState.publishStatus(std::move(status));
}

QString AssistantPanelController::settingsTargetLanguage() const
{
    return m_services.appState.settings().targetLanguage;
}

void AssistantPanelController::show(const QString& context)
{
    m_isReplyMode = false;
    syncAppearance();
    const QString trimmed = context.trimmed();
    if (!trimmed.isEmpty()) {
        m_contextText = trimmed;
        setContextEnabled(true);
    }
    m_errorText.clear();
    emit changed();
    m_surface.get().present();
}

void AssistantPanelController::setContextEnabled(bool enabled)
{
    m_contextEnabled = enabled;
    MivoraSettings settings = m_services.appState.settings();
    settings.aiContextEnabled = enabled;
    m_services.appState.setSettings(settings);
    emit changed();
}

void AssistantPanelController::setRequestText(const QString& text)
{
    if (text == m_requestText) {
        return;
    }
    m_requestText = text;
    emit changed();
}

void AssistantPanelController::newChat()
{
    m_contextText.clear();
    m_requestText.clear();
    m_resultText.clear();
    m_turns.clear();
    m_copiedTurnID.reset();
    m_errorText.clear();
    m_isRunning = false;
    m_assistantSessionId = newSessionId();
    m_isReplyMode = false;
    m_replyStyleName.clear();
    m_selectedReplyStyleID.clear();
    m_replyTranslationSource.clear();
    emit changed();
    report(ActionStatus::done(text("New AI chat", "Новый AI-чат")));
}

void AssistantPanelController::run()
{
    if (m_isRunning) {
        return;
    }
    const QString request = m_requestText.trimmed();
    const QString context = m_contextEnabled ? m_contextText.trimmed() : QString();
    if (request.isEmpty()) {
        m_errorText = text("Enter a request.", "Введите запрос.");
        emit changed();
        return;
    }
    m_isRunning = true;
    m_errorText.clear();
    emit changed();
    report(ActionStatus::running(text("AI running", "AI выполняется")));
    const QString message = context.isEmpty() ? request
                                              : QStringLiteral("Selected text:\n") + context +
                                                    QStringLiteral("\n\nRequest:\n") + request;
    runRequest(message, request);
}

QCoro::Task<> AssistantPanelController::runRequest(QString message, QString request)
{
    QPointer<AssistantPanelController> self(this);
    PanelBackendRequest call{
        message,
        BackendAction::assistant,
        PromptStyle{QStringLiteral("assistant"), QStringLiteral("AI"), {}, notAssigned, false},
        QStringLiteral("English"),
        true,
        m_assistantSessionId,
        true};
    try {
        const QString reply = co_await m_services.backend.send(call);
        if (!self) {
            co_return;
        }
        m_turns.append({QUuid::createUuid(), request, reply, m_services.clock.now()});
        m_resultText = reply;
        m_requestText.clear();
        m_isRunning = false;
        emit changed();
        report(ActionStatus::done(text("AI ready", "AI готов")));
    } catch (const MivoraError& error) {
        if (self) {
            finishWithFailure(error.errorDescription());
        }
    }
}

void AssistantPanelController::finishWithFailure(const QString& description)
{
    m_errorText = description;
    m_isRunning = false;
    emit changed();
    report(ActionStatus::failed(description));
}

void AssistantPanelController::showReply(const QString& message, const AIReplyStyle& style,
                                         const QString& targetLanguage)
{
    const QString trimmed = message.trimmed();
    if (trimmed.isEmpty() || m_isRunning) {
        return;
    }
    newChat();
    show(trimmed);
    m_isReplyMode = true;
    m_replyStyleName = style.name;
    m_selectedReplyStyleID = style.id;
    m_contextText = trimmed;
    m_contextEnabled = true;
    emit changed();
    generateReply(trimmed, style, targetLanguage);
}

void AssistantPanelController::generateReply(const QString& message, const AIReplyStyle& style,
                                             const QString& targetLanguage)
{
    if (message.trimmed().isEmpty() || m_isRunning) {
        return;
    }
    m_isRunning = true;
    m_errorText.clear();
    m_resultText.clear();
    m_turns.clear();
    emit changed();
    report(ActionStatus::running(text("Writing reply", "Готовлю ответ")));
    generate(message, style, targetLanguage);
}

QCoro::Task<> AssistantPanelController::generate(QString message, AIReplyStyle style, QString targetLanguage)
{
    QPointer<AssistantPanelController> self(this);
    try {
        const QString reply = co_await m_services.backend.sendReply(message, style, targetLanguage);
        if (!self) {
            co_return;
        }
        m_turns = {{QUuid::createUuid(), message.trimmed(), reply, m_services.clock.now()}};
        m_resultText = reply;
        m_replyTranslationSource = reply;
        m_isRunning = false;
        emit changed();
        report(ActionStatus::done(text("Reply ready", "Ответ готов")));
    } catch (const MivoraError& error) {
        if (self) {
            finishWithFailure(error.errorDescription());
        }
    }
}

void AssistantPanelController::selectReplyStyle(const QString& id)
{
    if (!m_isReplyMode) {
        return;
    }
    const auto style = std::find_if(m_replyStyles.cbegin(), m_replyStyles.cend(),
                                    [&](const AIReplyStyle& candidate) { return candidate.id == id; });
    if (style == m_replyStyles.cend() || m_isRunning) {
        return;
    }
    m_selectedReplyStyleID = style->id;
    m_replyStyleName = style->name;
    emit changed();
    generateReply(m_contextText, *style, settingsTargetLanguage());
}

void AssistantPanelController::regenerateReply()
{
    selectReplyStyle(m_selectedReplyStyleID);
}

void AssistantPanelController::addEmojisToReply()
{
    const QString reply = m_resultText.trimmed();
    if (!m_isReplyMode || reply.isEmpty() || m_isRunning) {
        return;
    }
    m_isRunning = true;
    m_errorText.clear();
    emit changed();
    report(ActionStatus::running(text("Adding emojis", "Добавляю смайлы")));
    addEmojis(reply);
}

QCoro::Task<> AssistantPanelController::addEmojis(QString reply)
{
    QPointer<AssistantPanelController> self(this);
    PanelBackendRequest call{
        reply,
        BackendAction::emoji,
        PromptStyle{QStringLiteral("emoji"), QStringLiteral("Emoji"),
                    QStringLiteral("Add 1-3 relevant emojis while preserving the wording, meaning, language, "
                                   "and tone. Return only the updated text."),
                    notAssigned, false},
        settingsTargetLanguage(),
        true,
        {},
        false};
    try {
        const QString result = co_await m_services.backend.send(call);
        if (!self) {
            co_return;
        }
        m_resultText = result;
        m_replyTranslationSource = result;
        replaceLastReplyResult(result);
        m_isRunning = false;
        emit changed();
        report(ActionStatus::done(text("Emojis added", "Смайлы добавлены")));
    } catch (const MivoraError& error) {
        if (self) {
            finishWithFailure(error.errorDescription());
        }
    }
}

void AssistantPanelController::replaceLastReplyResult(const QString& result)
{
    if (m_turns.isEmpty()) {
        return;
    }
    AssistantConversationTurn replaced{QUuid::createUuid(), m_turns.last().request, result,
                                       m_services.clock.now()};
    m_turns.last() = std::move(replaced);
    emit changed();
}

void AssistantPanelController::translateReply()
{
    const QString source =
        (m_replyTranslationSource.isEmpty() ? m_resultText : m_replyTranslationSource).trimmed();
    if (!m_isReplyMode || source.isEmpty() || m_isRunning) {
        return;
    }
    // A new identity retires any translation still on its way: its answer finds another id and is dropped.
    m_replyTransformID = QUuid::createUuid();
    m_isRunning = true;
    m_errorText.clear();
    emit changed();
    report(ActionStatus::running(text("Translating reply", "Перевожу ответ")));
    translate(source, m_replyTransformID);
}

QCoro::Task<> AssistantPanelController::translate(QString source, QUuid transformID)
{
    QPointer<AssistantPanelController> self(this);
    PanelBackendRequest call{
        source,
        BackendAction::translate,
        PromptStyle{QStringLiteral("original"), QStringLiteral("Translate"), {}, notAssigned, false},
        m_replyTranslationLanguage,
        false,
        {},
        false};
    std::optional<QString> translation;
    QString failure;
    try {
        translation = co_await m_services.backend.send(call);
    } catch (const MivoraError& error) {
        failure = error.errorDescription();
    }
    if (!self || m_replyTransformID != transformID) {
        co_return;
    }
    if (!translation) {
        finishWithFailure(failure);
        co_return;
    }
    // The source stays the untranslated reply, so the next language starts from it again.
    m_resultText = *translation;
    replaceLastReplyResult(m_resultText);
    m_isRunning = false;
    emit changed();
    report(ActionStatus::done(text("Reply translated", "Ответ переведён")));
}

void AssistantPanelController::selectReplyTranslationLanguage(const QString& language)
{
    if (language == m_replyTranslationLanguage) {
        return;
    }
    m_replyTranslationLanguage = language;
    emit changed();
    translateReply();
}

void AssistantPanelController::copyResult()
{
    if (m_resultText.isEmpty()) {
        return;
    }
    m_services.exchange.copy(m_resultText);
    report(ActionStatus::done(text("Copied", "Скопировано")));
}

void AssistantPanelController::copyMessage(const AssistantConversationTurn& turn)
{
    m_services.exchange.copy(turn.result);
    m_copiedTurnID = turn.id;
    emit changed();
    report(ActionStatus::done(text("Copied", "Скопировано")));
    clearCopiedMark(turn.id);
}

QCoro::Task<> AssistantPanelController::clearCopiedMark(QUuid id)
{
    QPointer<AssistantPanelController> self(this);
    co_await m_services.clock.sleep(std::chrono::milliseconds(1100));
    if (self && m_copiedTurnID == id) {
        m_copiedTurnID.reset();
        emit changed();
    }
}

void AssistantPanelController::pasteResult()
{
    const std::optional<qint32> target = m_services.exchange.rememberedProcessIdentifier();
    if (m_resultText.isEmpty() || !target) {
        report(ActionStatus::failed(text("No app found for paste", "Не найдено приложение для вставки")));
        return;
    }
    if (KeyPanelSurface* surface = m_surface.ifMade()) {
        surface->orderOut();
    }
    paste(m_resultText, *target);
}

QCoro::Task<> AssistantPanelController::paste(QString reply, qint32 processIdentifier)
{
    QPointer<AssistantPanelController> self(this);
    try {
        co_await m_services.exchange.pasteAIReply(reply, processIdentifier);
        if (self) {
            report(ActionStatus::done(text("Pasted", "Вставлено")));
        }
    } catch (const MivoraError& error) {
        if (self) {
            report(ActionStatus::failed(error.errorDescription()));
        }
    }
}
