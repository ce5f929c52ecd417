#include "hotkeys/HotkeyService.h"

#include "core/MivoraAppState.h"
#include "core/TextExchange.h"
#include "exchange/FocusService.h"
#include "exchange/QuietSelectionReader.h"
#include "hotkeys/HotkeyPanelTargets.h"
#include "hotkeys/HotkeyServiceError.h"
#include "hotkeys/HotkeyWindowTargets.h"
#include "hotkeys/ParsedHotkey.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/GlobalHotkeyRegistrar.h"

using Kind = RegisteredHotkeyAction::Kind;

HotkeyService::HotkeyService(Services services, QObject* parent) : QObject(parent), m_services(services) {}

HotkeyService::~HotkeyService()
{
    stop();
}

void HotkeyService::start(MivoraAppState& appState)
{
    if (m_started) {
        return;
    }
    m_appState = &appState;
    try {
        // Presses are handled on a later turn of the event loop, never inside the platform's callback.
        const qint32 status = m_services.registrar.installPressHandler([this](quint32 id) {
            QMetaObject::invokeMethod(
                this, [this, id] { handleHotkey(id); }, Qt::QueuedConnection);
        });
        if (status != 0) {
            throw HotkeyServiceError::installFailed(status);
        }
        m_started = true;
        if (m_suspensions == 0) {
            registerConfiguredHotkeys();
        }
    } catch (const HotkeyServiceError& error) {
        stop();
        reportFailure(error.errorDescription());
        return;
    }
    // Any settings change re-registers everything; there is no comparison of old and new.
    m_settingsConnection = connect(&appState, &MivoraAppState::settingsChanged, this,
                                   &HotkeyService::reloadConfiguredHotkeys, Qt::QueuedConnection);
}

void HotkeyService::stop()
{
    m_services.registrar.unregisterAll();
    m_registeredActions.clear();
    if (m_started) {
        m_services.registrar.removePressHandler();
        m_started = false;
    }
    disconnect(m_settingsConnection);
}

bool HotkeyService::registerHotkey(quint32 id, const QString& hotkey, const RegisteredHotkeyAction& action,
                                   QSet<QString>& registeredSignatures)
{
    if (ParsedHotkey::isNotAssigned(hotkey)) {
        return false;
    }
    const auto parsed = ParsedHotkey::parse(hotkey);
    if (!parsed) {
        throw HotkeyServiceError::invalidHotkey(hotkey);
    }
    const QString signature = parsed->canonicalSignature();
    if (registeredSignatures.contains(signature)) {
        // The earlier claimant keeps the chord, silently.
        return false;
    }
    registeredSignatures.insert(signature);
    const qint32 status = m_services.registrar.registerHotkey(id, parsed->keyCode, parsed->modifiers());
    if (status != 0) {
        throw HotkeyServiceError::registerFailed(hotkey, status);
    }
    m_registeredActions.insert(id, action);
    return true;
}

void HotkeyService::registerConfiguredHotkeys()
{
    if (!m_appState) {
        return;
    }
    const MivoraSettings settings = m_appState->settings();
    QSet<QString> signatures;
    quint32 id = 1;
    // The order is a priority: an earlier row wins every conflict with a later one.
    const auto add = [&](const QString& hotkey, const RegisteredHotkeyAction& action) {
        if (registerHotkey(id, hotkey, action, signatures)) {
            ++id;
        }
    };
    add(settings.assistantHotkey, {Kind::assistant, {}});
    add(settings.clipboardHotkey, {Kind::clipboard, {}});
    add(settings.layoutHotkey, {Kind::layout, {}});
    add(settings.translatePreviewHotkey, {Kind::translationPreview, {}});
    for (const auto& style : m_appState->promptStyles()) {
        add(style.hotkey, {Kind::style, style.id});
    }
    for (const auto& style : m_appState->aiReplyStyles()) {
        add(style.hotkey, {Kind::reply, style.id});
    }
    add(settings.quickMenuHotkey, {Kind::quickMenu, {}});

    if (!settings.windowTilingEnabled) {
        return;
    }
    // Tiling rows are lenient: whatever fails is skipped and the id is not used up.
    for (const QString& tilingId : WindowTilingHotkeys::registrationOrder()) {
        const auto hotkey = settings.windowTilingHotkeys.constFind(tilingId);
        if (hotkey == settings.windowTilingHotkeys.cend()) {
            continue;
        }
        try {
            add(*hotkey, {Kind::windowTiling, tilingId});
        } catch (const HotkeyServiceError&) {
        }
    }
}

void HotkeyService::suspendGlobalHotkeys()
{
    if (++m_suspensions == 1) {
        m_services.registrar.unregisterAll();
        m_registeredActions.clear();
    }
}

void HotkeyService::resumeGlobalHotkeys()
{
    if (m_suspensions > 0 && --m_suspensions == 0) {
        reloadConfiguredHotkeys();
    }
}

void HotkeyService::reloadConfiguredHotkeys()
{
    // A suspension holds every chord back; its end registers from the settings of that moment.
    if (!m_started || !m_appState || m_suspensions > 0) {
        return;
    }
    m_services.registrar.unregisterAll();
    m_registeredActions.clear();
    try {
        registerConfiguredHotkeys();
    } catch (const HotkeyServiceError& error) {
        // Whatever registered before the error stays in force; the next settings change tries again.
        reportFailure(error.errorDescription());
    }
}

void HotkeyService::reportFailure(const QString& description)
{
    if (!m_appState) {
        return;
    }
    m_appState->publishStatus(ActionStatus::failed(description));
}

void HotkeyService::rememberTarget()
{
    if (const auto front = m_services.workspace.frontmostApplication()) {
        m_services.focus.remember(*front);
    }
}

void HotkeyService::runAction(const QString& actionId)
{
    rememberTarget();
    m_appState->run(QuickAction(QuickAction::normalize(actionId)), true, false);
}

void HotkeyService::handleHotkey(quint32 id)
{
    if (!m_appState) {
        return;
    }
    const auto it = m_registeredActions.constFind(id);
    if (it == m_registeredActions.cend()) {
        return;
    }
    const RegisteredHotkeyAction& action = *it;
    switch (action.kind) {
    case Kind::quickMenu:
        m_services.panels.toggleQuickPanel();
        break;
    case Kind::assistant:
        showAssistant();
        break;
    case Kind::clipboard:
        m_services.panels.toggleClipboardPanel();
        break;
    case Kind::layout:
        runAction(QStringLiteral("layout"));
        break;
    case Kind::translationPreview:
        rememberTarget();
        m_services.panels.showTranslationPreview();
        break;
    case Kind::style:
        runAction(action.payload == u"translate" ? QStringLiteral("translate")
                                                 : QStringLiteral("style:") + action.payload);
        break;
    case Kind::reply:
        showReply(action.payload);
        break;
    case Kind::windowTiling:
        dispatchWindowTiling(action.payload);
        break;
    }
}

void HotkeyService::dispatchWindowTiling(const QString& tilingId)
{
    HotkeyWindowTargets& windows = m_services.windows;
    if (tilingId == u"builtInDisplay") {
        windows.toggleBuiltInDisplay();
        return;
    }
    if (const auto direction = WindowTilingHotkeys::swapDirection(tilingId)) {
        windows.swapFocusedWindow(*direction);
        return;
    }
    if (tilingId == u"tileAll") {
        windows.tileAllWindows();
        return;
    }
    const auto slot = WindowTilingHotkeys::slot(tilingId);
    if (!slot) {
        return;
    }
    const bool half = *slot == WindowTileSlot::leftHalf || *slot == WindowTileSlot::rightHalf;
    if (half && windows.popOutActiveTabIfNeeded(*slot)) {
        return;
    }
    windows.tileFocusedWindow(*slot);
}

QCoro::Task<> HotkeyService::showAssistant()
{
    rememberTarget();
    QPointer<HotkeyService> self(this);
    const QString context = co_await m_services.reader.selectedText();
    if (self) {
        m_services.panels.showAssistant(context);
    }
    co_return;
}

QCoro::Task<> HotkeyService::showReply(QString styleId)
{
    std::optional<AIReplyStyle> style;
    for (const auto& candidate : m_appState->aiReplyStyles()) {
        if (candidate.id == styleId) {
            style = candidate;
            break;
        }
    }
    if (!style) {
        co_return;
    }
    rememberTarget();
    QPointer<HotkeyService> self(this);
    QString text = co_await m_services.reader.selectedText();
    if (!self) {
        co_return;
    }
    if (text.trimmed().isEmpty()) {
        try {
            text = co_await m_services.exchange.readSelectedTextTransient(false, false,
                                                                          PasteboardTiming::quickTiming());
        } catch (const MivoraError&) {
            text.clear();
        }
    }
    if (!self || !m_appState) {
        co_return;
    }
    const QString message = text.trimmed();
    if (message.isEmpty()) {
        reportFailure(localized(m_appState->settings().uiLanguage, "Select a message to reply to",
                                "Выделите сообщение для ответа"));
        co_return;
    }
    m_services.panels.showReply(message, *style, m_appState->settings().targetLanguage);
}
