#pragma once

#include <QWidget>

class QLabel;

// One row of a card: a title, an optional smaller subtitle under it, and a control at the trailing edge.
class SettingsRow : public QWidget {
    Q_OBJECT
public:
    // control may be null for a row of text only; the row takes ownership of it.
    explicit SettingsRow(QWidget* control, QWidget* parent = nullptr);

    void setTitle(const QString& title);
    // A small symbol before the title, by its name ("bolt.fill"...), in the text colour; empty hides it.
    void setSymbol(const QString& symbolName);
    // An empty subtitle hides the second line.
    void setSubtitle(const QString& subtitle);
    // Fixes the title column's width range, for the label-and-control grids of some pages.
    void setTitleWidth(int minimum, int maximum);
    QWidget* control() const { return m_control; }
    QLabel* titleLabel() const { return m_title; }

private:
    QLabel* m_symbol = nullptr;
    QLabel* m_title = nullptr;
    QLabel* m_subtitle = nullptr;
    QWidget* m_control = nullptr;
};
