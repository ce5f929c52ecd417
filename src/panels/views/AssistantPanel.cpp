#include "panels/views/AssistantPanel.h"

#include "core/LanguageList.h"
#include "panels/AssistantPanelController.h"
#include "panels/LanguageShortCode.h"
#include "panels/views/AssistantComposerTextView.h"
#include "panels/views/SymbolIcons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QToolButton* toolButton(QWidget* parent, const QString& objectName)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(objectName);
    button->setAutoRaise(true);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

QLabel* wrappingLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

// The language button's face: the globe, the language's short code and a chevron, in that order, which a tool
// button's one icon before its text cannot show.
QPixmap languageButtonFace(const QString& code, const QFont& font, const QColor& ink)
{
    constexpr int side = 16;
    constexpr int gap = 4;
    constexpr int chevron = 10;
    const int codeWidth = QFontMetrics(font).horizontalAdvance(code);
    QPixmap face(QSize(side + gap + codeWidth + gap + chevron, side) * 2);
    face.setDevicePixelRatio(2);
    face.fill(Qt::transparent);
    QPainter painter(&face);
    SymbolIcons::icon(QStringLiteral("globe"), ink, side).paint(&painter, QRect(0, 0, side, side));
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRect(side + gap, 0, codeWidth, side), Qt::AlignCenter, code);
    SymbolIcons::icon(QStringLiteral("chevron.down"), ink, chevron)
        .paint(&painter, QRect(side + gap + codeWidth + gap, (side - chevron) / 2, chevron, chevron));
    return face;
}

// Empties the layout with its nested rows. Widgets go later: one of them may be the button whose click is
// being handled right now.
void clearLayout(QLayout* layout)
{
    while (QLayoutItem* item = layout->takeAt(0)) {
        if (QWidget* widget = item->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        if (QLayout* nested = item->layout()) {
            clearLayout(nested);
        }
        delete item;
    }
}

} // namespace

AssistantPanel::AssistantPanel(AssistantPanelController& controller, FloatingWindowTraits* windowTraits,
                               QWidget* parent)
    : ResizableKeyPanel(
          QStringLiteral("AI assistant"), AssistantPanelController::minPanelSize, controller.savedPanelSize(),
          [&controller](QSize size) { controller.savePanelSize(size); }, windowTraits, parent),
      m_controller(controller)
{
    setObjectName(QStringLiteral("assistantPanel"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(makeHeader());

    m_scroll = new QScrollArea(this);
    m_scroll->setObjectName(QStringLiteral("assistantTranscript"));
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_transcript = new QWidget(m_scroll);
    m_transcript->setAutoFillBackground(false);
    // The panel's own sheet shows through the transcript.
    m_transcript->setAttribute(Qt::WA_TranslucentBackground);
    m_transcript->setStyleSheet(QStringLiteral("background: transparent;"));
    m_transcriptLayout = new QVBoxLayout(m_transcript);
    m_transcriptLayout->setSpacing(10);
    m_scroll->setWidget(m_transcript);
    layout->addWidget(m_scroll, 1);

    m_error = wrappingLabel({}, this);
    m_error->setObjectName(QStringLiteral("assistantError"));
    m_error->setStyleSheet(QStringLiteral("color: #d9534f;"));
    layout->addWidget(m_error);
    layout->addWidget(makeComposer());
    layout->addWidget(makeReplyActions());
    makeLanguageList();

    connect(&m_controller, &AssistantPanelController::changed, this, &AssistantPanel::refresh);
    refresh();
}

QWidget* AssistantPanel::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    m_headerIcon = new QLabel(header);
    m_title = new QLabel(header);
    m_title->setObjectName(QStringLiteral("assistantTitle"));
    QFont bold = m_title->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.15);
    m_title->setFont(bold);
    m_newChat = toolButton(header, QStringLiteral("assistantNewChat"));
    connect(m_newChat, &QToolButton::clicked, &m_controller, &AssistantPanelController::newChat);
    m_styleMenu = toolButton(header, QStringLiteral("assistantReplyStyle"));
    m_styleMenu->setPopupMode(QToolButton::InstantPopup);
    m_styleMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_styleMenu->setMenu(new QMenu(m_styleMenu));
    row->addWidget(m_headerIcon);
    row->addWidget(m_title, 1);
    row->addWidget(m_newChat);
    row->addWidget(m_styleMenu);
    return header;
}

QWidget* AssistantPanel::makeComposer()
{
    m_composer = new QWidget(this);
    auto* column = new QVBoxLayout(m_composer);
    column->setContentsMargins(0, 0, 0, 0);
    auto* tools = new QHBoxLayout;
    m_contextToggle = toolButton(m_composer, QStringLiteral("assistantContextToggle"));
    m_contextToggle->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(m_contextToggle, &QToolButton::clicked, this,
            [this] { m_controller.setContextEnabled(!m_controller.contextEnabled()); });
    m_contextChars = new QLabel(m_composer);
    m_contextChars->setObjectName(QStringLiteral("assistantContextChars"));
    m_pasteResult = toolButton(m_composer, QStringLiteral("assistantPasteResult"));
    connect(m_pasteResult, &QToolButton::clicked, &m_controller, &AssistantPanelController::pasteResult);
    tools->addWidget(m_contextToggle);
    tools->addWidget(m_contextChars);
    tools->addStretch(1);
    tools->addWidget(m_pasteResult);
    column->addLayout(tools);

    auto* input = new QHBoxLayout;
    m_editor = new AssistantComposerTextView(m_composer);
    m_editor->setObjectName(QStringLiteral("assistantComposer"));
    m_editor->setMaximumHeight(110);
    connect(m_editor, &QPlainTextEdit::textChanged, this,
            [this] { m_controller.setRequestText(m_editor->toPlainText()); });
    m_editor->onSubmit = [this] { m_controller.run(); };
    m_send = toolButton(m_composer, QStringLiteral("assistantSend"));
    connect(m_send, &QToolButton::clicked, &m_controller, &AssistantPanelController::run);
    input->addWidget(m_editor, 1);
    input->addWidget(m_send, 0, Qt::AlignBottom);
    column->addLayout(input);
    return m_composer;
}

QWidget* AssistantPanel::makeReplyActions()
{
    m_replyActions = new QWidget(this);
    auto* row = new QHBoxLayout(m_replyActions);
    row->setContentsMargins(0, 0, 0, 0);
    m_regenerate = toolButton(m_replyActions, QStringLiteral("assistantRegenerate"));
    connect(m_regenerate, &QToolButton::clicked, &m_controller, &AssistantPanelController::regenerateReply);
    m_emojis = toolButton(m_replyActions, QStringLiteral("assistantAddEmojis"));
    m_emojis->setIconSize(QSize(32, 16));
    connect(m_emojis, &QToolButton::clicked, &m_controller, &AssistantPanelController::addEmojisToReply);
    m_language = toolButton(m_replyActions, QStringLiteral("assistantLanguage"));
    connect(m_language, &QToolButton::clicked, this,
            [this] { setLanguageListVisible(!isLanguageListVisible()); });
    m_translate = toolButton(m_replyActions, QStringLiteral("assistantTranslate"));
    m_translate->setToolButtonStyle(Qt::ToolButtonTextOnly);
    connect(m_translate, &QToolButton::clicked, &m_controller, &AssistantPanelController::translateReply);
    m_copy = toolButton(m_replyActions, QStringLiteral("assistantCopy"));
    connect(m_copy, &QToolButton::clicked, &m_controller, &AssistantPanelController::copyResult);
    m_paste = toolButton(m_replyActions, QStringLiteral("assistantPaste"));
    connect(m_paste, &QToolButton::clicked, &m_controller, &AssistantPanelController::pasteResult);
    for (QToolButton* button : {m_regenerate, m_emojis, m_language, m_translate}) {
        row->addWidget(button);
    }
    row->addStretch(1);
    row->addWidget(m_copy);
    row->addWidget(m_paste);
    return m_replyActions;
}

void AssistantPanel::makeLanguageList()
{
    m_languageList = new QListWidget(this);
    m_languageList->setObjectName(QStringLiteral("assistantLanguageList"));
    m_languageList->setFixedSize(230, 280);
    for (const QString& name : LanguageList::names()) {
        auto* item = new QListWidgetItem(LanguageShortCode::of(name) + QStringLiteral("   ") + name);
        item->setData(Qt::UserRole, name);
        item->setSizeHint(QSize(200, 30));
        m_languageList->addItem(item);
    }
    connect(m_languageList, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        setLanguageListVisible(false);
        m_controller.selectReplyTranslationLanguage(item->data(Qt::UserRole).toString());
    });
    m_languageList->hide();
}

bool AssistantPanel::isLanguageListVisible() const
{
    return m_languageList->isVisible();
}

void AssistantPanel::setLanguageListVisible(bool visible)
{
    if (visible) {
        placeLanguageList();
        m_languageList->raise();
        m_languageList->setFocus();
    }
    m_languageList->setVisible(visible);
}

void AssistantPanel::placeLanguageList()
{
    // Opens upwards from the language button, inside the panel.
    const QPoint anchor = m_language->mapTo(this, QPoint(0, 0));
    const int x = std::clamp(anchor.x(), 8, std::max(8, width() - m_languageList->width() - 8));
    const int y = std::max(8, anchor.y() - m_languageList->height() - 6);
    m_languageList->move(x, y);
}

void AssistantPanel::resizeEvent(QResizeEvent* event)
{
    ResizableKeyPanel::resizeEvent(event);
    if (m_languageList != nullptr && isLanguageListVisible()) {
        placeLanguageList();
    }
}

void AssistantPanel::refresh()
{
    const AssistantPanelController& c = m_controller;
    setLook(c.appearanceMode(), c.surfaceMode());
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor accent = palette().color(QPalette::Highlight);
    const bool reply = c.isReplyMode();
    const bool running = c.isRunning();

    m_headerIcon->setPixmap(
        SymbolIcons::icon(QStringLiteral("bubble.left.and.bubble.right"), accent, 18).pixmap(18));
    m_title->setText(reply ? QStringLiteral("AI Reply") : c.text("AI assistant", "AI помощник"));
    m_newChat->setVisible(!reply);
    m_newChat->setIcon(SymbolIcons::icon(QStringLiteral("plus.message"), ink, 16));
    m_newChat->setToolTip(c.text("New chat", "Новый чат"));
    m_styleMenu->setVisible(reply);
    m_styleMenu->setEnabled(!running);
    m_styleMenu->setText(c.replyStyleName());
    m_styleMenu->setToolTip(c.text("Reply style", "Стиль ответа"));
    QMenu* styles = m_styleMenu->menu();
    styles->clear();
    for (const AIReplyStyle& style : c.replyStyles()) {
        QAction* action = styles->addAction(style.name);
        if (style.id == c.selectedReplyStyleID()) {
            action->setIcon(SymbolIcons::icon(QStringLiteral("checkmark"), ink, 16));
        }
        connect(action, &QAction::triggered, this,
                [this, id = style.id] { m_controller.selectReplyStyle(id); });
    }

    rebuildTranscript();

    m_error->setText(c.errorText());
    m_error->setVisible(!c.errorText().isEmpty());

    m_composer->setVisible(!reply);
    m_contextToggle->setText(c.contextEnabled() ? c.text("Context on", "Контекст включен")
                                                : c.text("Context", "Контекст"));
    m_contextToggle->setIcon(c.contextEnabled()
                                 ? SymbolIcons::icon(QStringLiteral("checkmark.circle.fill"), accent, 16)
                                 : QIcon());
    const bool hasContext = !c.contextText().trimmed().isEmpty();
    m_contextChars->setVisible(hasContext);
    m_contextChars->setText(QString::number(c.contextCharacterCount()) + c.text(" chars", " симв."));
    m_pasteResult->setVisible(!c.resultText().isEmpty());
    m_pasteResult->setIcon(SymbolIcons::icon(QStringLiteral("arrow.turn.down.left"), ink, 16));
    m_pasteResult->setToolTip(c.text("Paste result", "Вставить результат"));
    m_editor->setPlaceholder(c.text("Ask AI...", "Спросить AI..."));
    m_editor->setTextIfDifferent(c.requestText());
    m_send->setIcon(SymbolIcons::icon(
        running ? QStringLiteral("sparkles") : QStringLiteral("paperplane.fill"), accent, 16));
    m_send->setToolTip(c.text("Send", "Отправить"));
    m_send->setAccessibleName(m_send->toolTip());
    m_send->setEnabled(c.canSend());

    m_replyActions->setVisible(reply);
    const bool act = c.canActOnReply();
    const struct {
        QToolButton* button;
        const char* english;
        const char* russian;
        const char* symbol;
    } actions[] = {
        {m_regenerate, "Regenerate reply", "Повторить ответ", "arrow.clockwise"},
        {m_emojis, "Add emojis", "Добавить смайлы", nullptr},
        {m_translate, "Translate reply", "Перевести ответ", nullptr},
        {m_copy, "Copy reply", "Скопировать ответ", "doc.on.doc"},
        {m_paste, "Paste reply", "Вставить ответ", "arrow.turn.down.left"},
    };
    for (const auto& action : actions) {
        // The help text names the button for screen readers as well.
        action.button->setToolTip(c.text(action.english, action.russian));
        action.button->setAccessibleName(action.button->toolTip());
        action.button->setEnabled(act);
        if (action.symbol != nullptr) {
            action.button->setIcon(SymbolIcons::icon(QString::fromLatin1(action.symbol), ink, 16));
        }
    }
    m_emojis->setIcon(
        SymbolIcons::iconRow({QStringLiteral("plus"), QStringLiteral("face.smiling")}, ink, 16));
    m_translate->setText(c.text("Translate", "Перевод"));
    const QPixmap languageFace =
        languageButtonFace(LanguageShortCode::of(c.replyTranslationLanguage()), m_language->font(), ink);
    m_language->setIcon(languageFace);
    m_language->setIconSize(languageFace.deviceIndependentSize().toSize());
    m_language->setToolTip(c.text("Translation language", "Язык перевода"));
    m_language->setAccessibleName(m_language->toolTip());
    m_language->setEnabled(!running);
    for (int row = 0; row < m_languageList->count(); ++row) {
        QListWidgetItem* item = m_languageList->item(row);
        const bool current = item->data(Qt::UserRole).toString() == c.replyTranslationLanguage();
        item->setIcon(current ? SymbolIcons::icon(QStringLiteral("checkmark"), accent, 16) : QIcon());
    }
    if (!reply || running) {
        m_languageList->hide();
    }
}

void AssistantPanel::rebuildTranscript()
{
    const AssistantPanelController& c = m_controller;
    QList<QUuid> ids;
    for (const AssistantConversationTurn& turn : c.turns()) {
        ids.append(turn.id);
    }
    const bool scroll = ids.size() != m_shownTurns.size() || c.isRunning() != m_shownRunning;
    if (ids == m_shownTurns && c.copiedTurnID() == m_shownCopied && c.isRunning() == m_shownRunning &&
        m_transcriptLayout->count() > 0) {
        return;
    }
    m_shownTurns = ids;
    m_shownCopied = c.copiedTurnID();
    m_shownRunning = c.isRunning();
    clearLayout(m_transcriptLayout);
    const QColor ink = palette().color(QPalette::WindowText);
    if (c.turns().isEmpty()) {
        m_transcriptLayout->addStretch(1);
        auto* icon = new QLabel(m_transcript);
        icon->setAlignment(Qt::AlignCenter);
        icon->setPixmap(
            SymbolIcons::icon(QStringLiteral("sparkles"), palette().color(QPalette::Highlight), 28)
                .pixmap(28));
        m_transcriptLayout->addWidget(icon);
        m_placeholder =
            new QLabel(c.isRunning() ? c.text("Writing reply...", "Готовлю ответ...")
                                     : c.text("Response will appear here.", "Ответ появится здесь."),
                       m_transcript);
        m_placeholder->setObjectName(QStringLiteral("assistantPlaceholder"));
        m_placeholder->setAlignment(Qt::AlignCenter);
        m_transcriptLayout->addWidget(m_placeholder);
        m_transcriptLayout->addStretch(1);
        return;
    }
    m_placeholder = nullptr;
    for (const AssistantConversationTurn& turn : c.turns()) {
        auto* bubble = wrappingLabel(turn.request, m_transcript);
        bubble->setObjectName(QStringLiteral("assistantUserBubble"));
        bubble->setStyleSheet(
            QStringLiteral("background: rgba(127,127,127,0.22); border-radius: 10px; padding: 8px;"));
        auto* bubbleRow = new QHBoxLayout;
        bubbleRow->addStretch(1);
        bubbleRow->addWidget(bubble, 4);
        m_transcriptLayout->addLayout(bubbleRow);

        auto* answerRow = new QHBoxLayout;
        auto* answer = wrappingLabel(turn.result, m_transcript);
        answer->setObjectName(QStringLiteral("assistantAnswer"));
        auto* copy = toolButton(m_transcript, QStringLiteral("assistantCopyTurn"));
        const bool copied = c.copiedTurnID() == turn.id;
        copy->setIcon(
            SymbolIcons::icon(copied ? QStringLiteral("checkmark") : QStringLiteral("doc.on.doc"), ink, 16));
        connect(copy, &QToolButton::clicked, this, [this, turn] { m_controller.copyMessage(turn); });
        answerRow->addWidget(answer, 1);
        answerRow->addWidget(copy, 0, Qt::AlignTop);
        m_transcriptLayout->addLayout(answerRow);
    }
    m_transcriptLayout->addStretch(1);
    if (scroll) {
        scrollToBottomLater();
    }
}

void AssistantPanel::scrollToBottomLater()
{
    // After the new rows are laid out, or the range still ends above them.
    QTimer::singleShot(0, this, [this] {
        m_scroll->verticalScrollBar()->setValue(m_scroll->verticalScrollBar()->maximum());
    });
}
