#pragma once

#include "core/SettingsEnums.h"

#include <QWidget>
#include <memory>

class FloatingWindowTraits;
class SavedPanelSize;

// The shared frame of every floating panel and overlay: a frameless window above normal windows, on every
// desktop and out of taskbars, that draws its own rounded, tinted sheet with a hairline border. Closing it
// (from the window manager or the program) only hides it: a panel is made once, on its first show, and
// kept. GUI thread.
class FloatingPanel : public QWidget {
    Q_OBJECT
public:
    enum class Role {
        // Takes the keyboard focus when shown: panels the user types into.
        keyPanel,
        // Never takes the focus, so the application the user works in keeps it.
        nonActivatingPanel,
        // Never focused and not managed by the window manager: status feedback above everything.
        overlay,
    };
    struct Options {
        QString title;
        Role role = Role::keyPanel;
        qreal cornerRadius = 16;
    };

    // windowTraits may be null (an overlay needs none; tests may leave them out) and must outlive the panel.
    FloatingPanel(Options options, FloatingWindowTraits* windowTraits, QWidget* parent = nullptr);
    ~FloatingPanel() override;

    // The sheet's appearance and surface. A solid surface cuts the window to its rounded shape, since
    // without a compositor transparent pixels would show black.
    void setLook(AppearanceMode appearance, SurfaceMode surface);
    AppearanceMode appearance() const { return m_appearance; }
    SurfaceMode surface() const { return m_surface; }

    // Takes the panel's size and limits from the saved size now, and writes the size back each time the
    // panel hides.
    void keepSizeIn(std::unique_ptr<SavedPanelSize> savedSize);
    // Shows the panel beside the pointer, on the screen the pointer is on.
    void showNearMouse();

protected:
    // The colour of text and symbols on the sheet.
    QColor ink() const;
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void updateMask();
    // The traits of this panel's role, on the native window.
    void applyTraits();

    Options m_options;
    FloatingWindowTraits* m_windowTraits;
    AppearanceMode m_appearance = AppearanceMode::system;
    SurfaceMode m_surface = SurfaceMode::translucent;
    std::unique_ptr<SavedPanelSize> m_savedSize;
    // Set at each show until the first paint, when the window is on screen and the hints are told again.
    bool m_tellTraitsOnScreen = false;
};
