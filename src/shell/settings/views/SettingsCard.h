#pragma once

#include <QFrame>

class QVBoxLayout;

// A rounded, lightly tinted card that groups rows of a settings page; light on dark glass, dark on light.
class SettingsCard : public QFrame {
    Q_OBJECT
public:
    explicit SettingsCard(QWidget* parent = nullptr);

    // Appends a row (any widget) below the others.
    void addRow(QWidget* row);
    QVBoxLayout* rows() const { return m_rows; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows = nullptr;
};
