#include "panels/views/TranslationPreviewPanel.h"

#include "core/LanguageList.h"
#include "panels/FloatingPanelDismissMonitor.h"
#include "panels/TranslationPreviewPanelController.h"
#include "panels/views/QtLocalInputMonitor.h"
#include "panels/views/SelectablePreviewTextView.h"
#include "panels/views/SymbolIcons.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QToolButton* button(QWidget* parent, const QString& objectName, bool withText)
{
    auto* result = new QToolButton(parent);
    result->setObjectName(objectName);
    result->setAutoRaise(true);
    result->setToolButtonStyle(withText ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    return result;
}

QWidget* pane(QWidget* parent, QLabel*& title, SelectablePreviewTextView*& text, const QString& objectName)
{
    auto* column = new QWidget(parent);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    title = new QLabel(column);
    QFont small = title->font();
    small.setBold(true);
    title->setFont(small);
    text = new SelectablePreviewTextView(column);
    text->setObjectName(objectName);
    text->setStyleSheet(QStringLiteral("background: rgba(127,127,127,0.12); border-radius: 8px;"));
    layout->addWidget(title);
    layout->addWidget(text, 1);
    return column;
}

} // namespace

TranslationPreviewPanel::TranslationPreviewPanel(TranslationPreviewPanelController& controller,
                                                 FloatingWindowTraits* windowTraits,
                                                 InputEventMonitor& globalInput, QWidget* parent)
    : ResizableKeyPanel(
          QStringLiteral("Translation"), TranslationPreviewPanelController::minPanelSize,
          controller.savedPanelSize(), [&controller](QSize size) { controller.savePanelSize(size); },
          windowTraits, parent),
      m_controller(controller), m_localInput(std::make_unique<QtLocalInputMonitor>())
{
    setObjectName(QStringLiteral("translationPreviewPanel"));
    m_dismiss = std::make_unique<FloatingPanelDismissMonitor>(
        *m_localInput, globalInput,
        FloatingPanelDismissMonitor::Panel{static_cast<QWidget*>(this), [this] { return isVisible(); }},
        [this] { orderOut(); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(makeHeader());
    auto* body = new QHBoxLayout;
    body->setSpacing(10);
    m_sourcePane = pane(this, m_sourceTitle, m_source, QStringLiteral("translationPreviewOriginal"));
    body->addWidget(m_sourcePane, 1);
    body->addWidget(pane(this, m_resultTitle, m_result, QStringLiteral("translationPreviewResult")), 1);
    layout->addLayout(body, 1);
    m_error = new QLabel(this);
    m_error->setObjectName(QStringLiteral("translationPreviewError"));
    m_error->setWordWrap(true);
    m_error->setStyleSheet(QStringLiteral("color: #d9534f;"));
    layout->addWidget(m_error);
    layout->addWidget(makeButtons());

    connect(&m_controller, &TranslationPreviewPanelController::changed, this,
            &TranslationPreviewPanel::refresh);
    refresh();
}

TranslationPreviewPanel::~TranslationPreviewPanel()
{
    m_dismiss->remove();
}

QWidget* TranslationPreviewPanel::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    m_title = new QLabel(header);
    m_title->setObjectName(QStringLiteral("translationPreviewTitle"));
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_spinner = new QProgressBar(header);
    m_spinner->setRange(0, 0);
    m_spinner->setTextVisible(false);
    m_spinner->setFixedSize(48, 6);
    m_sourceToggle = button(header, QStringLiteral("translationPreviewSourceToggle"), false);
    connect(m_sourceToggle, &QToolButton::clicked, this,
            [this] { m_controller.setSourceVisible(!m_controller.sourceVisible()); });
    m_language = new QComboBox(header);
    m_language->setObjectName(QStringLiteral("translationPreviewLanguage"));
    m_language->setFixedWidth(150);
    m_language->addItems(LanguageList::names());
    connect(m_language, &QComboBox::activated, this,
            [this](int index) { m_controller.setTargetLanguage(m_language->itemText(index)); });
    m_fontControls = new QWidget(header);
    auto* fonts = new QHBoxLayout(m_fontControls);
    fonts->setContentsMargins(0, 0, 0, 0);
    fonts->setSpacing(0);
    m_smaller = button(m_fontControls, QStringLiteral("translationPreviewSmaller"), true);
    m_smaller->setText(QStringLiteral("A−"));
    m_larger = button(m_fontControls, QStringLiteral("translationPreviewLarger"), true);
    m_larger->setText(QStringLiteral("A+"));
    connect(m_smaller, &QToolButton::clicked, this,
            [this] { m_controller.setPreviewFontSize(m_controller.previewFontSize() - 1); });
    connect(m_larger, &QToolButton::clicked, this,
            [this] { m_controller.setPreviewFontSize(m_controller.previewFontSize() + 1); });
    fonts->addWidget(m_smaller);
    fonts->addWidget(m_larger);
    m_titleIcon = new QLabel(header);
    row->addWidget(m_titleIcon);
    row->addWidget(m_title);
    row->addWidget(m_spinner);
    row->addStretch(1);
    row->addWidget(m_sourceToggle);
    row->addWidget(m_language);
    row->addWidget(m_fontControls);
    return header;
}

QWidget* TranslationPreviewPanel::makeButtons()
{
    auto* buttons = new QWidget(this);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    m_fromClipboard = button(buttons, QStringLiteral("translationPreviewFromClipboard"), true);
    connect(m_fromClipboard, &QToolButton::clicked, &m_controller,
            &TranslationPreviewPanelController::pasteFromClipboardAndTranslate);
    m_copy = button(buttons, QStringLiteral("translationPreviewCopy"), true);
    connect(m_copy, &QToolButton::clicked, &m_controller, &TranslationPreviewPanelController::copyResult);
    m_insert = button(buttons, QStringLiteral("translationPreviewInsert"), true);
    connect(m_insert, &QToolButton::clicked, &m_controller, &TranslationPreviewPanelController::pasteResult);
    row->addWidget(m_fromClipboard);
    row->addStretch(1);
    row->addWidget(m_copy);
    row->addWidget(m_insert);
    return buttons;
}

void TranslationPreviewPanel::present()
{
    ResizableKeyPanel::present();
    m_dismiss->remove();
    m_dismiss->install();
}

void TranslationPreviewPanel::hideEvent(QHideEvent* event)
{
    m_dismiss->remove();
    ResizableKeyPanel::hideEvent(event);
}

void TranslationPreviewPanel::refresh()
{
    const TranslationPreviewPanelController& c = m_controller;
    setLook(c.appearanceMode(), c.surfaceMode());
    const QColor ink = palette().color(QPalette::WindowText);
    const bool running = c.isRunning();
    m_title->setText(c.text("Translation", "Перевод"));
    m_titleIcon->setPixmap(
        SymbolIcons::icon(QStringLiteral("translate"), palette().color(QPalette::Highlight), 16).pixmap(16));
    m_spinner->setVisible(running);
    const bool shown = c.sourceVisible();
    m_sourceToggle->setIcon(SymbolIcons::icon(
        shown ? QStringLiteral("sidebar.left") : QStringLiteral("sidebar.leading"), ink, 16));
    m_sourceToggle->setToolTip(shown ? c.text("Hide original", "Скрыть оригинал")
                                     : c.text("Show original", "Показать оригинал"));
    m_language->setToolTip(c.text("Language", "Язык"));
    m_language->setCurrentText(c.targetLanguage());
    m_language->setEnabled(!running);
    m_fontControls->setToolTip(c.text("Text size", "Размер текста"));
    m_smaller->setToolTip(c.text("Decrease text", "Уменьшить текст"));
    m_larger->setToolTip(c.text("Increase text", "Увеличить текст"));
    m_smaller->setEnabled(c.previewFontSize() > TranslationPreviewPanelController::minPreviewFontSize);
    m_larger->setEnabled(c.previewFontSize() < TranslationPreviewPanelController::maxPreviewFontSize);

    m_sourcePane->setVisible(shown);
    m_sourceTitle->setText(c.text("Original", "Оригинал"));
    m_source->present(c.sourceText(), {}, c.previewFontSize());
    m_resultTitle->setText(c.targetLanguage());
    m_result->present(c.resultText(), c.text("Translation will appear here.", "Перевод появится здесь."),
                      c.previewFontSize());
    m_error->setText(c.errorText());
    m_error->setVisible(!c.errorText().isEmpty());

    m_fromClipboard->setText(c.text("From Clipboard", "Из буфера"));
    m_fromClipboard->setIcon(SymbolIcons::icon(QStringLiteral("doc.on.clipboard"), ink, 16));
    m_fromClipboard->setEnabled(!running);
    m_copy->setText(c.text("Copy", "Скопировать"));
    m_copy->setIcon(SymbolIcons::icon(QStringLiteral("doc.on.doc"), ink, 16));
    m_insert->setText(c.text("Insert", "Вставить перевод"));
    m_insert->setIcon(SymbolIcons::icon(QStringLiteral("arrow.turn.down.left"), ink, 16));
    const bool hasResult = !c.resultText().isEmpty();
    m_copy->setEnabled(hasResult);
    m_insert->setEnabled(hasResult);
}
