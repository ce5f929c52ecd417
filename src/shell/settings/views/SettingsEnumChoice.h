#pragma once

#include "core/UiLanguage.h"

#include <QComboBox>
#include <QSignalBlocker>

// A picker over the cases of a settings enumeration, titled in the interface language.
class SettingsEnumChoice {
public:
    // Refills box with every case and selects current, without announcing a change.
    template <typename E> static void fill(QComboBox* box, UiLanguage language, E current)
    {
        const QSignalBlocker blocker(box);
        box->clear();
        for (const auto& c : EnumTable<E>::cases) {
            box->addItem(title(c.value, language), QVariant::fromValue(int(c.value)));
            if (c.value == current) {
                box->setCurrentIndex(box->count() - 1);
            }
        }
    }
    template <typename E> static E current(const QComboBox* box) { return E(box->currentData().toInt()); }
};
