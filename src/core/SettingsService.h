#pragma once

#include "core/MivoraSettings.h"

#include <QObject>

class NativeSettingsStore;

// The settings record of the program and the lists copied from it. Every edit builds the
// next record and assigns it once: one save of the whole record, one announcement. GUI thread.
class SettingsService : public QObject {
    Q_OBJECT
public:
    // Loads the record from the store.
    explicit SettingsService(NativeSettingsStore& store, QObject* parent = nullptr);

    const MivoraSettings& settings() const { return m_settings; }
    // Copies of the record's lists, the quick actions in normal form, refreshed at every assignment.
    const QList<QuickAction>& quickActions() const { return m_quickActions; }
    const QList<PromptStyle>& promptStyles() const { return m_promptStyles; }
    const QList<AIReplyStyle>& aiReplyStyles() const { return m_aiReplyStyles; }
    const QString& targetLanguage() const { return m_targetLanguage; }

    // Saves the whole record and announces it, even when nothing changed.
    void assign(MivoraSettings settings);

    // A custom rewrite style, named in the interface language, also joins both quick menu lists.
    void addPromptStyle();
    // Built-in styles are never deleted; a custom one leaves both quick menu lists too.
    void deletePromptStyle(const PromptStyle& style);
    // Replaces the first style with the same id; with none, nothing is saved.
    void updatePromptStyle(const PromptStyle& style);
    // A custom reply style, named in the interface language; reply styles stay out of the quick menu.
    void addAIReplyStyle();
    void deleteAIReplyStyle(const AIReplyStyle& style);
    void updateAIReplyStyle(const AIReplyStyle& style);

signals:
    // After every assignment, with the copies already refreshed.
    void changed();

private:
    NativeSettingsStore& m_store;
    MivoraSettings m_settings;
    QList<QuickAction> m_quickActions;
    QList<PromptStyle> m_promptStyles;
    QList<AIReplyStyle> m_aiReplyStyles;
    QString m_targetLanguage;
};
