#include "core/MivoraAppState.h"

#include "core/ClipboardHistoryControl.h"
#include "core/MivoraError.h"
#include "core/NativeSettingsStore.h"
#include "core/TextActionService.h"
#include "core/TextExchange.h"
#include "text/KeyboardLayoutService.h"

#include <QPointer>
#include <QUuid>

using namespace std::chrono_literals;

namespace {

QList<QuickAction> normalizedActions(const QStringList& ids)
{
    QList<QuickAction> actions;
    actions.reserve(ids.size());
    for (const auto& id : ids) {
        actions.append(QuickAction(QuickAction::normalize(id)));
    }
    return actions;
}

bool isQuietCapable(const QuickAction& action)
{
    return action.id == u"ai" || action.id == u"clipboard" || action.id == u"layout";
}

// Eight lower-case characters of a fresh UUID: short enough to read, unique enough for one user's styles.
QString freshIdSuffix()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).left(8).toLower();
}

struct StyleTitle {
    const char* id;
    const char* english;
    const char* russian;
};

constexpr StyleTitle styleTitles[] = {
    {"original", "Fix", "Исправить"},
    {"friendly", "Friendly", "Дружелюбно"},
    {"emoji", "Emojis", "Смайлики"},
    {"polite", "Polite", "Вежливо"},
    {"professional", "Professional", "Профессионально"},
    {"short", "Short", "Кратко"},
    {"detailed", "Detailed", "Подробно"},
    {"humor", "Humor", "С юмором"},
    {"flirt", "Flirt", "Флирт"},
    {"romantic", "Romantic", "Романтично"},
    {"sexy", "Sexy", "Сексуально"},
    {"formal", "Formal", "Официально"},
    {"casual", "Casual", "Неформально"},
    {"support", "Support", "Поддержка"},
    {"expert", "Expert", "Эксперт"},
    {"social", "Social Media", "Соцсети"},
    {"translate", "Translate", "Перевод"},
};

} // namespace

MivoraAppState::MivoraAppState(Services services, QObject* parent)
    : QObject(parent), m_services(services), m_quickActions(QuickAction::defaultActions()),
      m_promptStyles(MivoraPromptLibrary::builtInStyles()),
      m_aiReplyStyles(AIReplyStyleLibrary::builtInStyles()), m_settings(services.settingsStore.load()),
      m_systemSurfaceMode(systemResolvedSurfaceMode(services.surfaceSignals))
{
    copyDerivedFieldsFromSettings();
    m_systemSurfaceMode = systemResolvedSurfaceMode(m_services.surfaceSignals);
}

MivoraAppState::~MivoraAppState() = default;

void MivoraAppState::copyDerivedFieldsFromSettings()
{
    m_promptStyles = m_settings.promptStyles;
    m_aiReplyStyles = m_settings.aiReplyStyles;
    m_quickActions = normalizedActions(m_settings.quickMenuActions);
    m_targetLanguage = m_settings.targetLanguage;
}

void MivoraAppState::setSettings(MivoraSettings settings)
{
    m_settings = std::move(settings);
    m_services.settingsStore.save(m_settings);
    copyDerivedFieldsFromSettings();
    emit promptStylesChanged();
    emit aiReplyStylesChanged();
    emit quickActionsChanged();
    emit targetLanguageChanged();
    emit settingsChanged();
}

void MivoraAppState::setSelectedSettingsPage(SettingsPage page)
{
    m_selectedSettingsPage = page;
    emit selectedSettingsPageChanged();
}

void MivoraAppState::setStatus(ActionStatus status)
{
    m_status = std::move(status);
    emit statusChanged();
}

void MivoraAppState::setPermissionState(PermissionState state)
{
    m_permissionState = state;
    emit permissionStateChanged();
}

void MivoraAppState::setSampleText(QString text)
{
    m_sampleText = std::move(text);
    emit sampleTextChanged();
}

void MivoraAppState::setLatestOutput(QString text)
{
    m_latestOutput = std::move(text);
    emit latestOutputChanged();
}

void MivoraAppState::publish(ActionStatus status)
{
    setStatus(status);
    scheduleStatusReset(status);
}

void MivoraAppState::scheduleStatusReset(const ActionStatus& status)
{
    m_statusResetTimer.cancel();
    if (status.kind == ActionStatus::Kind::running || status.kind == ActionStatus::Kind::idle) {
        return;
    }
    const auto delay = status.kind == ActionStatus::Kind::done ? 900ms : 1300ms;
    // The timer belongs to this object, so a destroyed state can never be reset.
    m_statusResetTimer = m_services.clock.schedule(delay, [this, status] {
        if (m_status == status) {
            publish(ActionStatus::idle());
        }
    });
}

QString MivoraAppState::title(const QuickAction& action) const
{
    const UiLanguage lang = language();
    if (action.id == u"ai") {
        return localized(lang, "AI assistant", "AI помощник");
    }
    if (action.id == u"clipboard") {
        return localized(lang, "Clipboard", "Буфер");
    }
    if (action.id == u"layout") {
        return localized(lang, "Layout", "Раскладка");
    }
    const auto styleId = action.styleId();
    if (!styleId) {
        return action.title();
    }
    if (*styleId == u"translate") {
        return localized(lang, "Translate", "Перевод");
    }
    for (const auto& style : m_promptStyles) {
        if (style.id == *styleId) {
            return styleTitle(style);
        }
    }
    return action.title();
}

QString MivoraAppState::styleTitle(const PromptStyle& style) const
{
    for (const auto& entry : styleTitles) {
        if (style.id == QLatin1String(entry.id)) {
            return localized(language(), entry.english, entry.russian);
        }
    }
    return style.name;
}

void MivoraAppState::run(QuickAction action, bool pasteResult, bool updateSampleText)
{
    // The coroutine starts eagerly and runs its synchronous prefix now; dropping the task lets it finish
    // alone.
    runToEnd(std::move(action), pasteResult, updateSampleText);
}

QCoro::Task<> MivoraAppState::runToEnd(QuickAction action, bool pasteResult, bool updateSampleText)
{
    const bool quietRun = pasteResult && isQuietCapable(action);
    if (!quietRun) {
        publish(ActionStatus::running(language() == UiLanguage::ru
                                          ? QStringLiteral("Выполняю: ") + title(action)
                                          : title(action) + QStringLiteral(" running")));
    }

    // Everything below may outlive the state (the process is quitting); a gone state ends the run quietly.
    QPointer<MivoraAppState> self(this);
    try {
        QString input;
        bool readByAccessibility = false;
        if (!pasteResult) {
            input = m_sampleText;
        } else {
            if (!quietRun) {
                publish(ActionStatus::running(localized(language(), "Reading selection", "Читаю выделение")));
            }
            const bool selectAll = m_settings.autoSelectAllBeforeAction && !isQuietCapable(action);
            if (!quietRun) {
                input = co_await m_services.exchange.readSelectedTextTransient(
                    selectAll, true, PasteboardTiming::standardTiming());
            } else {
                const QString accessible = m_services.exchange.selectedTextForLayout();
                if (!accessible.trimmed().isEmpty()) {
                    input = accessible;
                    readByAccessibility = true;
                } else {
                    input = co_await m_services.exchange.readSelectedTextTransient(
                        selectAll, false, PasteboardTiming::quickTiming());
                }
            }
            if (!self) {
                co_return;
            }
        }

        const QString targetLanguage = m_targetLanguage;
        if (!quietRun) {
            // Deliberately the fixed title with the English word, whatever the interface language.
            publish(ActionStatus::running(action.title() + QStringLiteral(" running")));
        }

        if (action.id == u"layout") {
            const KeyboardLayoutFixResult result = m_services.keyboardLayout.fix(input, m_settings);
            QString message;
            if (!pasteResult) {
                message = result.text;
            } else {
                bool replaced = false;
                if (readByAccessibility) {
                    replaced = co_await m_services.exchange.replaceSelectedTextViaAccessibility(result.text);
                    if (!self) {
                        co_return;
                    }
                }
                if (!replaced) {
                    co_await m_services.exchange.pasteTransient(result.text, std::nullopt,
                                                                PasteboardTiming::quickTiming());
                    if (!self) {
                        co_return;
                    }
                }
                message = localized(language(), "Keyboard layout fixed", "Раскладка исправлена");
                if (m_settings.layoutAutoSwitch && result.targetLayoutName) {
                    try {
                        m_services.keyboardLayout.switchLayout(*result.targetLayoutName);
                        message += QStringLiteral(" · ") + *result.targetLayoutName;
                    } catch (const MivoraError&) {
                        // A fix that could not switch the layout still counts as done.
                    }
                }
            }
            setLatestOutput(result.text);
            if (updateSampleText) {
                setSampleText(result.text);
            }
            publish(quietRun ? ActionStatus::idle() : ActionStatus::done(message));
            co_return;
        }

        const QList<PromptStyle> styles = m_promptStyles;
        const QString output = co_await m_services.actions.run(action, input, targetLanguage, styles);
        if (!self) {
            co_return;
        }
        if (pasteResult) {
            publish(ActionStatus::running(localized(language(), "Pasting", "Вставляю")));
            co_await m_services.exchange.pasteTransient(output, std::nullopt,
                                                        PasteboardTiming::standardTiming());
            if (!self) {
                co_return;
            }
        }
        setLatestOutput(output);
        if (updateSampleText) {
            setSampleText(output);
        }
        publish(ActionStatus::done(pasteResult ? localized(language(), "Pasted", "Вставлено") : output));
    } catch (const MivoraError& error) {
        if (self) {
            publish(ActionStatus::failed(error.errorDescription()));
        }
    } catch (const std::exception& error) {
        if (self) {
            publish(ActionStatus::failed(QString::fromUtf8(error.what())));
        }
    }
}

void MivoraAppState::addPromptStyle()
{
    const QString id = QStringLiteral("custom-") + freshIdSuffix();
    MivoraSettings next = m_settings;
    next.promptStyles.append(PromptStyle{
        id, localized(language(), "New Style", "Новый стиль"),
        localized(
            language(),
            "Rewrite the text in the requested style. Preserve the meaning and return only the final text.",
            "Перепиши текст в нужном стиле. Сохрани смысл и верни только готовый текст."),
        QStringLiteral("Not assigned"), true});
    setSettings(next);

    const QString actionId = QStringLiteral("style:") + id;
    if (!m_settings.quickMenuOrder.contains(actionId)) {
        next = m_settings;
        next.quickMenuOrder.append(actionId);
        setSettings(next);
    }
    if (!m_settings.quickMenuActions.contains(actionId)) {
        next = m_settings;
        next.quickMenuActions.append(actionId);
        setSettings(next);
    }
    setSelectedSettingsPage(SettingsPage::styles);
}

void MivoraAppState::deletePromptStyle(const PromptStyle& style)
{
    if (MivoraPromptLibrary::builtInStyleIds().contains(style.id)) {
        return;
    }
    const QString actionId = QStringLiteral("style:") + style.id;
    const auto isThisStyle = [&](const QString& id) { return QuickAction::normalize(id) == actionId; };

    MivoraSettings next = m_settings;
    next.promptStyles.removeIf([&](const PromptStyle& s) { return s.id == style.id; });
    setSettings(next);
    next = m_settings;
    next.quickMenuActions.removeIf(isThisStyle);
    setSettings(next);
    next = m_settings;
    next.quickMenuOrder.removeIf(isThisStyle);
    setSettings(next);
}

void MivoraAppState::updatePromptStyle(const PromptStyle& style)
{
    for (qsizetype i = 0; i < m_settings.promptStyles.size(); ++i) {
        if (m_settings.promptStyles[i].id == style.id) {
            MivoraSettings next = m_settings;
            next.promptStyles[i] = style;
            setSettings(next);
            return;
        }
    }
}

void MivoraAppState::addAIReplyStyle()
{
    MivoraSettings next = m_settings;
    next.aiReplyStyles.append(AIReplyStyle{
        QStringLiteral("custom-reply-") + freshIdSuffix(),
        localized(language(), "New Reply Style", "Новый стиль ответа"),
        localized(language(),
                  "Write a natural ready-to-send reply in the requested style. Return only the reply text.",
                  "Напиши естественный готовый ответ в нужном стиле. Верни только текст ответа."),
        QStringLiteral("Not assigned")});
    setSettings(next);
    setSelectedSettingsPage(SettingsPage::aiReply);
}

void MivoraAppState::deleteAIReplyStyle(const AIReplyStyle& style)
{
    if (AIReplyStyleLibrary::builtInStyleIds().contains(style.id)) {
        return;
    }
    MivoraSettings next = m_settings;
    next.aiReplyStyles.removeIf([&](const AIReplyStyle& s) { return s.id == style.id; });
    setSettings(next);
}

void MivoraAppState::updateAIReplyStyle(const AIReplyStyle& style)
{
    for (qsizetype i = 0; i < m_settings.aiReplyStyles.size(); ++i) {
        if (m_settings.aiReplyStyles[i].id == style.id) {
            MivoraSettings next = m_settings;
            next.aiReplyStyles[i] = style;
            setSettings(next);
            return;
        }
    }
}

void MivoraAppState::clearClipboardHistory()
{
    if (m_clipboardHistory) {
        m_clipboardHistory->clearHistory();
    }
    publish(ActionStatus::done(localized(language(), "Clipboard history cleared", "История буфера очищена")));
}

void MivoraAppState::refreshSystemSurfaceMode()
{
    const SurfaceMode resolved = systemResolvedSurfaceMode(m_services.surfaceSignals);
    if (resolved != m_systemSurfaceMode) {
        m_systemSurfaceMode = resolved;
        emit systemSurfaceModeChanged();
    }
}

void MivoraAppState::startSystemSurfaceObserver()
{
    refreshSystemSurfaceMode();
    if (m_systemSurfaceTimer.isActive()) {
        return;
    }
    m_systemSurfaceTimer = m_services.clock.scheduleRepeating(750ms, [this] { refreshSystemSurfaceMode(); });
}
