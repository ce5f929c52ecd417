#pragma once

#include "core/ActionStatus.h"
#include "core/PromptStyle.h"
#include "core/SettingsEnums.h"
#include "core/UiLanguage.h"
#include "panels/KeyPanelSurface.h"
#include "panels/LazyPanel.h"
#include "panels/SavedPanelSize.h"

#include <QObject>
#include <QPointer>
#include <qcoro/qcorotask.h>

class DefaultsStore;
class MivoraAppState;
class PanelBackend;
class PanelExchange;

// Shows a translation of the selection beside its original without touching the selection; the user
// changes the language, copies the translation or inserts it. The last answer to arrive wins. GUI thread.
class TranslationPreviewPanelController : public QObject {
    Q_OBJECT
public:
    using SurfaceFactory = std::function<std::unique_ptr<KeyPanelSurface>()>;
    struct Services {
        MivoraAppState& appState;
        PanelBackend& backend;
        PanelExchange& exchange;
        DefaultsStore& defaults;
    };

    // The services must outlive the controller; the surface is made on the first show.
    TranslationPreviewPanelController(Services services, SurfaceFactory makeSurface,
                                      QObject* parent = nullptr);
    ~TranslationPreviewPanelController() override;

    const QString& sourceText() const { return m_sourceText; }
    const QString& resultText() const { return m_resultText; }
    const QString& targetLanguage() const { return m_targetLanguage; }
    bool sourceVisible() const { return m_sourceVisible; }
    bool isRunning() const { return m_isRunning; }
    const QString& errorText() const { return m_errorText; }
    AppearanceMode appearanceMode() const { return m_appearanceMode; }
    SurfaceMode surfaceMode() const { return m_surfaceMode; }
    UiLanguage uiLanguage() const { return m_uiLanguage; }
    double previewFontSize() const { return m_previewFontSize; }
    // The panel's text in the interface language of the moment.
    QString text(const char* english, const char* russian) const
    {
        return localized(m_uiLanguage, english, russian);
    }

    // Reads the selection of the application in front, then opens the panel and translates it; a failed
    // read opens the panel with the error.
    void showFromSelection();
    // Brings the panel up.
    void show();
    // Translates the source into the target language.
    void translateCurrent();
    // Stores the language and translates the source again, if there is one.
    void setTargetLanguage(const QString& language);
    void pasteFromClipboardAndTranslate();
    void setSourceVisible(bool visible);
    void setPreviewFontSize(double size);
    void copyResult();
    // Hides the panel and pastes the translation where the user was.
    void pasteResult();

    // The size the panel opens at, and the size it was resized to.
    QSize savedPanelSize() const { return m_size.load(); }
    void savePanelSize(QSize size) { m_size.save(size); }
    static constexpr QSize minPanelSize{520, 360};
    static constexpr double minPreviewFontSize = 12;
    static constexpr double maxPreviewFontSize = 28;

signals:
    // Any observable field changed.
    void changed();

private:
    void syncAppearance();
    void report(ActionStatus status);
    QCoro::Task<> readSelection();
    QCoro::Task<> translate(QString source, PromptStyle style, QString language);
    QCoro::Task<> pasteFromClipboard();
    QCoro::Task<> paste(QString translation);
    void finishWithFailure(const QString& description);

    Services m_services;
    LazyPanel<KeyPanelSurface> m_surface;
    SavedPanelSize m_size;

    QString m_sourceText;
    QString m_resultText;
    QString m_targetLanguage = QStringLiteral("English");
    bool m_sourceVisible = true;
    bool m_isRunning = false;
    QString m_errorText;
    AppearanceMode m_appearanceMode = AppearanceMode::system;
    SurfaceMode m_surfaceMode = SurfaceMode::translucent;
    UiLanguage m_uiLanguage = UiLanguage::en;
    double m_previewFontSize = 14;
};
