#pragma once

#include "core/AIReplyStyle.h"
#include "core/ActionStatus.h"
#include "core/Clock.h"
#include "core/SettingsEnums.h"
#include "core/UiLanguage.h"
#include "panels/KeyPanelSurface.h"
#include "panels/LazyPanel.h"
#include "panels/SavedPanelSize.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUuid>
#include <optional>
#include <qcoro/qcorotask.h>

class DefaultsStore;
class MivoraAppState;
class PanelBackend;
class PanelExchange;

// One exchange of the transcript. A turn whose answer is replaced becomes a new turn with a new id.
struct AssistantConversationTurn {
    QUuid id;
    QString request;
    QString result;
    QDateTime at;
};

// The AI assistant: a chat that may send the selection it was opened with, and a reply mode that drafts,
// restyles, decorates, translates and pastes one answer to a message from another application. isRunning
// is the one gate between its backend calls; only newChat breaks it. GUI thread.
class AssistantPanelController : public QObject {
    Q_OBJECT
public:
    using SurfaceFactory = std::function<std::unique_ptr<KeyPanelSurface>()>;
    struct Services {
        MivoraAppState& appState;
        Clock& clock;
        PanelBackend& backend;
        PanelExchange& exchange;
        DefaultsStore& defaults;
    };

    // The services must outlive the controller; the surface is made on the first show.
    AssistantPanelController(Services services, SurfaceFactory makeSurface, QObject* parent = nullptr);
    ~AssistantPanelController() override;

    const QString& contextText() const { return m_contextText; }
    bool contextEnabled() const { return m_contextEnabled; }
    const QString& requestText() const { return m_requestText; }
    const QString& resultText() const { return m_resultText; }
    const QList<AssistantConversationTurn>& turns() const { return m_turns; }
    std::optional<QUuid> copiedTurnID() const { return m_copiedTurnID; }
    bool isRunning() const { return m_isRunning; }
    const QString& errorText() const { return m_errorText; }
    AppearanceMode appearanceMode() const { return m_appearanceMode; }
    SurfaceMode surfaceMode() const { return m_surfaceMode; }
    UiLanguage uiLanguage() const { return m_uiLanguage; }
    bool isReplyMode() const { return m_isReplyMode; }
    const QString& replyStyleName() const { return m_replyStyleName; }
    const QList<AIReplyStyle>& replyStyles() const { return m_replyStyles; }
    const QString& selectedReplyStyleID() const { return m_selectedReplyStyleID; }
    const QString& replyTranslationLanguage() const { return m_replyTranslationLanguage; }
    const QString& assistantSessionId() const { return m_assistantSessionId; }
    const QString& replyTranslationSource() const { return m_replyTranslationSource; }

    // What the panel's controls allow now.
    bool canSend() const { return !m_isRunning && !m_requestText.trimmed().isEmpty(); }
    bool canActOnReply() const { return !m_isRunning && !m_resultText.trimmed().isEmpty(); }
    // The context's length in characters as the user counts them.
    int contextCharacterCount() const;
    // The panel's text in the interface language of the moment.
    QString text(const char* english, const char* russian) const
    {
        return localized(m_uiLanguage, english, russian);
    }

    // Opens the chat; a blank context keeps the earlier one.
    void show(const QString& context);
    // Opens a reply to message; dropped silently while a call runs.
    void showReply(const QString& message, const AIReplyStyle& style, const QString& targetLanguage);
    // Empties the chat and starts a new server-side session; a call in flight still lands here.
    void newChat();
    // Sends the composer's request.
    void run();
    void setRequestText(const QString& text);
    void generateReply(const QString& message, const AIReplyStyle& style, const QString& targetLanguage);
    void selectReplyStyle(const QString& id);
    void regenerateReply();
    void addEmojisToReply();
    // Translates the reply as it stood before any translation; a newer translation overtakes an older one.
    void translateReply();
    void selectReplyTranslationLanguage(const QString& language);
    void replaceLastReplyResult(const QString& result);
    void copyResult();
    // Copies one answer; its copy icon shows a check mark for 1.1 s.
    void copyMessage(const AssistantConversationTurn& turn);
    // Hides the panel and pastes the answer into the remembered chat's message box.
    void pasteResult();
    // Persists the choice in the settings.
    void setContextEnabled(bool enabled);

    // The size the panel opens at, and the size it was resized to.
    QSize savedPanelSize() const { return m_size.load(); }
    void savePanelSize(QSize size) { m_size.save(size); }
    static constexpr QSize minPanelSize{480, 560};

signals:
    // Any observable field changed.
    void changed();

private:
    void syncAppearance();
    void syncSettings();
    void report(ActionStatus status);
    QCoro::Task<> runRequest(QString message, QString request);
    QCoro::Task<> generate(QString message, AIReplyStyle style, QString targetLanguage);
    QCoro::Task<> addEmojis(QString reply);
    QCoro::Task<> translate(QString source, QUuid transformID);
    QCoro::Task<> paste(QString reply, qint32 processIdentifier);
    QCoro::Task<> clearCopiedMark(QUuid id);
    QString settingsTargetLanguage() const;
    void finishWithFailure(const QString& description);

    Services m_services;
    LazyPanel<KeyPanelSurface> m_surface;
    SavedPanelSize m_size;

    QString m_contextText;
    bool m_contextEnabled = false;
    QString m_requestText;
    QString m_resultText;
    QList<AssistantConversationTurn> m_turns;
    std::optional<QUuid> m_copiedTurnID;
    bool m_isRunning = false;
    QString m_errorText;
    AppearanceMode m_appearanceMode = AppearanceMode::system;
    SurfaceMode m_surfaceMode = SurfaceMode::translucent;
    UiLanguage m_uiLanguage = UiLanguage::en;
    bool m_isReplyMode = false;
    QString m_replyStyleName;
    QList<AIReplyStyle> m_replyStyles;
    QString m_selectedReplyStyleID;
    QString m_replyTranslationLanguage = QStringLiteral("English");

    QString m_assistantSessionId;
    QUuid m_replyTransformID;
    QString m_replyTranslationSource;
};
