#pragma once

#include "AppStateHarness.h"
#include "panels/KeyPanelSurface.h"
#include "panels/PanelBackend.h"
#include "panels/PanelExchange.h"

#include <QStringList>

// The backend on virtual time: each call takes the next scripted answer (or echoes "re:" + text at once).
class FakePanelBackend : public PanelBackend {
public:
    struct Answer {
        QString text;
        std::chrono::milliseconds after{0};
        bool fails = false;
    };

    explicit FakePanelBackend(TestClock& clock) : m_clock(clock) {}

    QList<Answer> script;
    QList<PanelBackendRequest> sends;
    QStringList replies;

    QCoro::Task<QString> send(PanelBackendRequest request) override
    {
        sends.append(request);
        co_return co_await answer(request.text);
    }
    QCoro::Task<QString> sendReply(QString message, AIReplyStyle style, QString targetLanguage) override
    {
        replies.append(message + u'|' + style.id + u'|' + targetLanguage);
        co_return co_await answer(message);
    }

private:
    QCoro::Task<QString> answer(QString text)
    {
        const Answer next = script.isEmpty() ? Answer{QStringLiteral("re:") + text} : script.takeFirst();
        if (next.after.count() > 0) {
            co_await m_clock.sleep(next.after);
        }
        if (next.fails) {
            throw MivoraError(next.text);
        }
        co_return next.text;
    }

    TestClock& m_clock;
};

// The other application and the clipboard, with one log of everything in the order it happened; the
// panel's surface writes to the same log.
class FakePanelExchange : public PanelExchange, public KeyPanelSurface {
public:
    QStringList log;
    std::optional<qint32> remembered = 42;
    QString quietSelection;
    QString copiedSelection;
    std::optional<QString> readError;
    std::optional<QString> clipboard;
    bool shown = false;

    void rememberFrontmostApplication() override { log << QStringLiteral("remember"); }
    std::optional<qint32> rememberedProcessIdentifier() const override { return remembered; }
    QCoro::Task<QString> quietSelectedText() override
    {
        log << QStringLiteral("quiet read");
        co_return QString(quietSelection);
    }
    QCoro::Task<QString> readSelectedTextTransient(bool selectAll, bool fallback,
                                                   PasteboardTiming timing) override
    {
        log << QStringLiteral("copy read %1 %2 %3")
                   .arg(selectAll)
                   .arg(fallback)
                   .arg(timing == PasteboardTiming::standardTiming());
        if (readError) {
            throw MivoraError(*readError);
        }
        co_return QString(copiedSelection);
    }
    QCoro::Task<> pasteTransient(QString text, PasteboardTiming timing) override
    {
        log << QStringLiteral("paste %1 %2").arg(text).arg(timing == PasteboardTiming::standardTiming());
        co_return;
    }
    QCoro::Task<> pasteAIReply(QString text, qint32 target) override
    {
        log << QStringLiteral("reply paste %1 into %2").arg(text).arg(target);
        co_return;
    }
    void copy(const QString& text) override { log << QStringLiteral("copy ") + text; }
    QCoro::Task<std::optional<QString>> clipboardText() override
    {
        co_return std::optional<QString>(clipboard);
    }

    void present() override
    {
        shown = true;
        log << QStringLiteral("present");
    }
    void orderOut() override
    {
        shown = false;
        log << QStringLiteral("order out");
    }
    bool isShown() const override { return shown; }
};

// A real application state on virtual time with both fakes.
class AIPanelHarness : public AppStateHarness {
protected:
    // Hands the fake exchange out as the panel's surface; it stays owned here.
    std::function<std::unique_ptr<KeyPanelSurface>()> surface()
    {
        return [this] { return std::unique_ptr<KeyPanelSurface>(new SurfaceProxy(world)); };
    }
    QList<ActionStatus> statuses() { return m_statuses; }
    void followStatus()
    {
        QObject::connect(&state, &MivoraAppState::statusChanged, [this] {
            if (state.status().kind != ActionStatus::Kind::idle) {
                m_statuses.append(state.status());
            }
        });
    }

    FakePanelBackend ai{clock};
    FakePanelExchange world;

private:
    class SurfaceProxy : public KeyPanelSurface {
    public:
        explicit SurfaceProxy(KeyPanelSurface& target) : m_target(target) {}
        void present() override { m_target.present(); }
        void orderOut() override { m_target.orderOut(); }
        bool isShown() const override { return m_target.isShown(); }

    private:
        KeyPanelSurface& m_target;
    };

    QList<ActionStatus> m_statuses;
};
