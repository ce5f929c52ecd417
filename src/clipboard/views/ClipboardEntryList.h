#pragma once

#include <QListView>

class ClipboardEntryDelegate;

// The panel's list of history items or notes. It never takes the keyboard focus (typing stays in the
// search field) and reports the gestures on its rows by the entry's id: a click or a hover selects, a
// double click pastes, a symbol button does its own thing.
class ClipboardEntryList : public QListView {
    Q_OBJECT
public:
    explicit ClipboardEntryList(QWidget* parent = nullptr);
    ClipboardEntryDelegate& delegate() { return *m_delegate; }
    // The id of the row at pos in viewport coordinates, or empty.
    QString idAt(QPoint pos) const;

signals:
    void entrySelected(const QString& id);
    void entryActivated(const QString& id);
    void buttonClicked(const QString& id, int button);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    int buttonAt(QPoint pos) const;

    ClipboardEntryDelegate* m_delegate;
    QString m_pressedId;
    int m_pressedButton = -1;
    QString m_hoveredId;
};
