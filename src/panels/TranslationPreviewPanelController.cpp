#include "panels/TranslationPreviewPanelController.h"

#include "core/DefaultsStore.h"
#include "core/MivoraAppState.h"
#include "core/MivoraError.h"
#include "core/MivoraPromptLibrary.h"
#include "panels/PanelBackend.h"
#include "panels/PanelExchange.h"

#include <algorithm>

namespace {

const QString fontSizeStorageKey = QStringLiteral("mivora.translationPreviewPanel.fontSize");

} // namespace

TranslationPreviewPanelController::TranslationPreviewPanelController(Services services,
                                                                     SurfaceFactory makeSurface,
                                                                     QObject* parent)
    : QObject(parent), m_services(services), m_surface(std::move(makeSurface)),
      m_size(services.defaults, QStringLiteral("mivora.translationPreviewPanel"),
             {minPanelSize, QSize(980, 860), QSize(680, 460)})
{
    const double stored = m_services.defaults.value(fontSizeStorageKey).toDouble();
    if (stored >= minPreviewFontSize && stored <= maxPreviewFontSize) {
        m_previewFontSize = stored;
    }
    syncAppearance();
    MivoraAppState& state = m_services.appState;
    connect(&state, &MivoraAppState::settingsChanged, this, [this] {
        m_appearanceMode = m_services.appState.settings().appearanceMode;
        m_uiLanguage = m_services.appState.settings().uiLanguage;
        emit changed();
    });
    connect(&state, &MivoraAppState::systemSurfaceModeChanged, this, [this] {
        m_surfaceMode = m_services.appState.systemSurfaceMode();
        emit changed();
    });
}

TranslationPreviewPanelController::~TranslationPreviewPanelController() = default;

void TranslationPreviewPanelController::syncAppearance()
{
    const MivoraAppState& state = m_services.appState;
    m_appearanceMode = state.settings().appearanceMode;
    m_uiLanguage = state.settings().uiLanguage;
    m_surfaceMode = state.systemSurfaceMode();
}

void TranslationPreviewPanelController::report(ActionStatus status)
{
    m_services.appState.publishStatus(std::move(status));
}

void TranslationPreviewPanelController::showFromSelection()
{
    syncAppearance();
    m_targetLanguage = m_services.appState.settings().translatePreviewTargetLanguage;
    m_sourceText.clear();
    m_resultText.clear();
    m_errorText.clear();
    m_isRunning = true;
    // Before the panel takes the focus, or the panel itself would be the target.
    m_services.exchange.rememberFrontmostApplication();
    emit changed();
    report(ActionStatus::running(text("Reading selection", "Читаю выделение")));
    readSelection();
}

QCoro::Task<> TranslationPreviewPanelController::readSelection()
{
    QPointer<TranslationPreviewPanelController> self(this);
    QString selection;
    QString failure;
    bool failed = false;
    try {
        selection = (co_await m_services.exchange.quietSelectedText()).trimmed();
        if (!self) {
            co_return;
        }
        if (selection.isEmpty()) {
            selection = co_await m_services.exchange.readSelectedTextTransient(
                false, true, PasteboardTiming::standardTiming());
        }
    } catch (const MivoraError& error) {
        failed = true;
        failure = error.errorDescription();
    }
    if (!self) {
        co_return;
    }
    if (failed) {
        m_isRunning = false;
        m_errorText = failure;
        emit changed();
        show();
        report(ActionStatus::failed(failure));
        co_return;
    }
    m_sourceText = selection;
    emit changed();
    show();
    report(ActionStatus::running(text("Translating to ", "Перевожу на ") + m_targetLanguage));
    translateCurrent();
}

void TranslationPreviewPanelController::show()
{
    syncAppearance();
    emit changed();
    m_surface.get().present();
}

void TranslationPreviewPanelController::translateCurrent()
{
    const QString source = m_sourceText.trimmed();
    if (source.isEmpty()) {
        m_errorText = text("No selected text.", "Нет выделенного текста.");
        m_isRunning = false;
        emit changed();
        return;
    }
    const auto style =
        MivoraPromptLibrary::style(QStringLiteral("translate"), m_services.appState.promptStyles());
    if (!style) {
        m_errorText = text("Translate style not found.", "Стиль перевода не найден.");
        m_isRunning = false;
        emit changed();
        return;
    }
    m_isRunning = true;
    m_errorText.clear();
    emit changed();
    translate(source, *style, m_targetLanguage);
}

QCoro::Task<> TranslationPreviewPanelController::translate(QString source, PromptStyle style,
                                                           QString language)
{
    QPointer<TranslationPreviewPanelController> self(this);
    // WORKAROUND: GCC destroys a braced temporary inside a co_await expression twice; a named request
    // lives in the frame instead.
    const PanelBackendRequest request{source, BackendAction::translate, style, language, true, {}, false};
    try {
        const QString result = co_await m_services.backend.send(request);
        if (!self) {
            co_return;
        }
        m_resultText = result;
        m_isRunning = false;
        emit changed();
        report(ActionStatus::done(text("Translation preview ready", "Предпросмотр перевода готов")));
    } catch (const MivoraError& error) {
        if (self) {
            finishWithFailure(error.errorDescription());
        }
    }
}

void TranslationPreviewPanelController::finishWithFailure(const QString& description)
{
    m_errorText = description;
    m_isRunning = false;
    emit changed();
    report(ActionStatus::failed(description));
}

void TranslationPreviewPanelController::setTargetLanguage(const QString& language)
{
    if (language == m_targetLanguage) {
        return;
    }
    m_targetLanguage = language;
    MivoraSettings settings = m_services.appState.settings();
    settings.translatePreviewTargetLanguage = language;
    m_services.appState.setSettings(settings);
    emit changed();
    if (!m_sourceText.trimmed().isEmpty()) {
        translateCurrent();
    }
}

void TranslationPreviewPanelController::pasteFromClipboardAndTranslate()
{
    pasteFromClipboard();
}

QCoro::Task<> TranslationPreviewPanelController::pasteFromClipboard()
{
    QPointer<TranslationPreviewPanelController> self(this);
    const QString clipboard = (co_await m_services.exchange.clipboardText()).value_or(QString()).trimmed();
    if (!self) {
        co_return;
    }
    if (clipboard.isEmpty()) {
        const QString empty = text("Clipboard is empty.", "Буфер обмена пуст.");
        m_errorText = empty;
        m_isRunning = false;
        emit changed();
        report(ActionStatus::failed(empty));
        co_return;
    }
    m_sourceText = clipboard;
    m_resultText.clear();
    m_errorText.clear();
    emit changed();
    report(ActionStatus::running(text("Translating clipboard", "Перевожу из буфера")));
    translateCurrent();
}

void TranslationPreviewPanelController::setSourceVisible(bool visible)
{
    if (visible != m_sourceVisible) {
        m_sourceVisible = visible;
        emit changed();
    }
}

void TranslationPreviewPanelController::setPreviewFontSize(double size)
{
    const double clamped = std::clamp(size, minPreviewFontSize, maxPreviewFontSize);
    if (clamped == m_previewFontSize) {
        return;
    }
    m_previewFontSize = clamped;
    m_services.defaults.setValue(fontSizeStorageKey, clamped);
    emit changed();
}

void TranslationPreviewPanelController::copyResult()
{
    if (m_resultText.isEmpty()) {
        return;
    }
    m_services.exchange.copy(m_resultText);
    report(ActionStatus::done(text("Copied", "Скопировано")));
}

void TranslationPreviewPanelController::pasteResult()
{
    if (m_resultText.isEmpty()) {
        return;
    }
    paste(m_resultText);
}

QCoro::Task<> TranslationPreviewPanelController::paste(QString translation)
{
    QPointer<TranslationPreviewPanelController> self(this);
    if (KeyPanelSurface* surface = m_surface.ifMade()) {
        surface->orderOut();
    }
    try {
        co_await m_services.exchange.pasteTransient(translation, PasteboardTiming::standardTiming());
        if (self) {
            report(ActionStatus::done(text("Pasted", "Вставлено")));
        }
    } catch (const MivoraError& error) {
        if (self) {
            report(ActionStatus::failed(error.errorDescription()));
        }
    }
}
