#pragma once

#include <QAbstractButton>

// An on/off switch: a checkable button drawn as a pill with a knob, filled with the accent when on.
class SettingsSwitch : public QAbstractButton {
    Q_OBJECT
public:
    explicit SettingsSwitch(QWidget* parent = nullptr);

    QSize sizeHint() const override { return {38, 22}; }
    // Sets the state without announcing it, for refreshing from the settings.
    void setCheckedQuietly(bool checked);

protected:
    void paintEvent(QPaintEvent* event) override;
};
