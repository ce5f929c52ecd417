#pragma once

#include <QWidget>

// The one place the clipboard panel can be dragged by: a press here hands the move to the window manager.
// It shows the panel's symbol and title beside a grip.
class ClipboardWindowDragHandle : public QWidget {
    Q_OBJECT
public:
    explicit ClipboardWindowDragHandle(QWidget* parent = nullptr);
    void setTitle(const QString& title);
    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
};
