#include "shell/views/MainWindow.h"

#include "core/MivoraAppState.h"
#include "core/UiLanguage.h"
#include "panels/views/SymbolIcons.h"
#include "panels/views/ThemePainter.h"
#include "shell/settings/views/SettingsPageFactory.h"
#include "shell/views/GeneralSettingsView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int pageCount = int(EnumTable<SettingsPage>::cases.size());

QIcon tileIcon(SettingsPage page)
{
    static const QColor tiles[] = {
        QColor(142, 142, 147), QColor(175, 82, 222), QColor(255, 149, 0),  QColor(52, 199, 89),
        QColor(255, 204, 0),   QColor(0, 122, 255),  QColor(90, 200, 250), QColor(255, 59, 48),
        QColor(88, 86, 214),   QColor(48, 176, 199),
    };
    QPixmap pixmap(48, 48);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tiles[int(page) % std::size(tiles)]);
    painter.drawRoundedRect(QRectF(2, 2, 44, 44), 10, 10);
    QFont font;
    font.setPixelSize(28);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(0, 0, 48, 48), Qt::AlignCenter, SymbolIcons::glyph(symbolName(page)));
    return QIcon(pixmap);
}

// Each page scrolls on its own, so a short page never takes the height of a long one; its content is no
// wider than 700.
QScrollArea* scrolled(QWidget* page)
{
    page->setMaximumWidth(700);
    auto* content = new QWidget;
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(20, 12, 20, 20);
    layout->addWidget(page, 1);
    layout->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(content);
    scroll->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return scroll;
}

} // namespace

MainWindow::MainWindow(MivoraAppState& appState, const SettingsPageServices& services, MainWindowHooks hooks,
                       QWidget* parent)
    : QWidget(parent), m_appState(appState), m_hooks(std::move(hooks))
{
    setWindowTitle(QStringLiteral("MivoraAI"));
    setMinimumSize(760, 500);
    resize(900, 600);

    m_sidebar = new QListWidget(this);
    m_sidebar->setFixedWidth(220);
    m_sidebar->setIconSize(QSize(24, 24));
    m_sidebar->setFrameShape(QFrame::NoFrame);
    m_sidebar->setAttribute(Qt::WA_MacShowFocusRect, false);
    m_sidebar->setStyleSheet(QStringLiteral("QListWidget { background: transparent; padding: 8px; }"));
    for (const auto& c : EnumTable<SettingsPage>::cases) {
        auto* row = new QListWidgetItem(tileIcon(c.value), QString(), m_sidebar);
        row->setSizeHint(QSize(200, 34));
    }

    m_pageTitle = new QLabel(this);
    m_pageTitle->setFixedHeight(30);
    QFont titleFont = m_pageTitle->font();
    titleFont.setWeight(QFont::DemiBold);
    m_pageTitle->setFont(titleFont);
    m_pageTitle->setContentsMargins(16, 0, 16, 0);

    m_pages = new QStackedWidget(this);
    for (int index = 0; index < pageCount; ++index) {
        QWidget* page = index == int(SettingsPage::general)
                            ? new GeneralSettingsView(appState, m_autostart)
                            : SettingsPageFactory::make(SettingsPage(index), appState, services);
        if (!page) {
            auto* placeholder = new QLabel;
            placeholder->setObjectName(QStringLiteral("placeholder"));
            placeholder->setAlignment(Qt::AlignLeft | Qt::AlignTop);
            page = placeholder;
        }
        m_pages->addWidget(scrolled(page));
    }

    auto* detail = new QVBoxLayout;
    detail->setContentsMargins(0, 0, 0, 0);
    detail->setSpacing(0);
    detail->addWidget(m_pageTitle);
    detail->addWidget(m_pages, 1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_sidebar);
    layout->addLayout(detail, 1);

    connect(m_sidebar, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row < pageCount && SettingsPage(row) != m_appState.selectedSettingsPage()) {
            m_appState.setSelectedSettingsPage(SettingsPage(row));
        }
    });
    connect(&appState, &MivoraAppState::selectedSettingsPageChanged, this, &MainWindow::showSelectedPage);
    connect(&appState, &MivoraAppState::settingsChanged, this, [this] {
        retranslate();
        applyTheme();
    });
    auto* quickMenu = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Space")), this);
    connect(quickMenu, &QShortcut::activated, this, [this] {
        if (m_hooks.toggleQuickMenu) {
            m_hooks.toggleQuickMenu();
        }
    });
    retranslate();
    showSelectedPage();
    applyTheme();
}

void MainWindow::applyTheme()
{
    // The tinted appearances are dark glass: their text is light. The system one keeps the desktop's colours.
    QPalette colours = QApplication::palette();
    const AppearanceMode appearance = m_appState.settings().appearanceMode;
    if (appearance != AppearanceMode::system) {
        colours.setColor(QPalette::WindowText, Qt::white);
        // Switches and selections take the appearance's accent.
        colours.setColor(QPalette::Highlight,
                         ThemePainter::color(AppearancePalette::accentColor(appearance), colours));
    }
    setPalette(colours);
    QPalette sidebar = colours;
    if (m_appState.settings().appearanceMode != AppearanceMode::system) {
        sidebar.setColor(QPalette::Text, Qt::white);
    }
    m_sidebar->setPalette(sidebar);
    update();
}

MainWindow::~MainWindow() = default;

void MainWindow::retranslate()
{
    const UiLanguage language = m_appState.settings().uiLanguage;
    for (int index = 0; index < pageCount; ++index) {
        m_sidebar->item(index)->setText(title(SettingsPage(index), language));
    }
    for (QLabel* placeholder : m_pages->findChildren<QLabel*>(QStringLiteral("placeholder"))) {
        placeholder->setText(
            localized(language, "This page is not ready yet.", "Эта страница пока не готова."));
    }
    m_pageTitle->setText(title(m_appState.selectedSettingsPage(), language));
}

void MainWindow::showSelectedPage()
{
    const int index = int(m_appState.selectedSettingsPage());
    m_sidebar->setCurrentRow(index);
    m_pages->setCurrentIndex(index);
    m_pageTitle->setText(title(m_appState.selectedSettingsPage(), m_appState.settings().uiLanguage));
}

void MainWindow::setPageWidget(int pageIndex, QWidget* page)
{
    QWidget* old = m_pages->widget(pageIndex);
    m_pages->insertWidget(pageIndex, scrolled(page));
    m_pages->removeWidget(old);
    delete old;
    showSelectedPage();
}

bool MainWindow::hasVisibleMainWindow() const
{
    return isVisible() && !isMinimized();
}

void MainWindow::setActivationPolicy(ActivationPolicy)
{
    // On this platform the taskbar entry is the main window's own: it comes and goes with the window, so
    // there is nothing more to switch.
}

void MainWindow::showAndActivate()
{
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_hooks.shouldClose && !m_hooks.shouldClose()) {
        event->ignore();
        return;
    }
    event->accept();
    if (m_hooks.closed) {
        m_hooks.closed();
    }
}

void MainWindow::showEvent(QShowEvent* event)
{
    // winId() makes the native window on the first show, before it is mapped.
    if (m_hooks.beforeShow) {
        m_hooks.beforeShow(winId());
    }
    QWidget::showEvent(event);
}

void MainWindow::paintEvent(QPaintEvent*)
{
    if (m_appState.settings().appearanceMode == AppearanceMode::system) {
        return;
    }
    QPainter painter(this);
    ThemePainter::paintSheet(painter, rect(), 0, m_appState.settings().appearanceMode,
                             m_appState.systemSurfaceMode(), palette());
}
