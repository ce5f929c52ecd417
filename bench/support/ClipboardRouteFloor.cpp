#include "ClipboardRouteFloor.h"

ClipboardRouteFloor::ClipboardRouteFloor(const PasteboardTiming& timing, bool reads, bool selectsAll,
                                         bool pastes)
    : m_timing(timing), m_reads(reads), m_selectsAll(selectsAll), m_pastes(pastes)
{}

ClipboardRouteFloor ClipboardRouteFloor::read(const PasteboardTiming& timing, bool selectsAll)
{
    return ClipboardRouteFloor(timing, true, selectsAll, false);
}

ClipboardRouteFloor ClipboardRouteFloor::paste(const PasteboardTiming& timing)
{
    return ClipboardRouteFloor(timing, false, false, true);
}

ClipboardRouteFloor ClipboardRouteFloor::readThenPaste(const PasteboardTiming& timing, bool selectsAll)
{
    return ClipboardRouteFloor(timing, true, selectsAll, true);
}

int ClipboardRouteFloor::toRead() const
{
    if (!m_reads) {
        return 0;
    }
    const int selectAll = m_selectsAll ? shortcutHold + m_timing.selectAllDelay : 0;
    // A copy delay of 0 means the copied text is polled for, with no fixed wait.
    return m_timing.activationDelay + selectAll + shortcutHold + m_timing.copyDelay;
}

int ClipboardRouteFloor::toPastePress() const
{
    return toRead() + (m_pastes ? m_timing.activationDelay + m_timing.pasteDelay : 0);
}

int ClipboardRouteFloor::toRestored() const
{
    return toPastePress() + (m_pastes ? shortcutHold + m_timing.restoreDelay : 0);
}

QString ClipboardRouteFloor::readSteps() const
{
    const QString selectAll = m_selectsAll ? QStringLiteral("A hold %1 + select-all delay %2 + ")
                                                 .arg(shortcutHold)
                                                 .arg(m_timing.selectAllDelay)
                                           : QString();
    const QString copy = m_timing.copyDelay == 0
                             ? QStringLiteral("copied-text poll (2 ms steps, no fixed wait)")
                             : QStringLiteral("copy delay %1 (attempt 0)").arg(m_timing.copyDelay);
    return QStringLiteral("activation %1 + %2C hold %3 + %4")
        .arg(m_timing.activationDelay)
        .arg(selectAll)
        .arg(shortcutHold)
        .arg(copy);
}

QString ClipboardRouteFloor::derivation() const
{
    if (!m_pastes) {
        return readSteps();
    }
    const QString paste =
        QStringLiteral("activation %1 + paste delay %2 -> V pressed; then V hold %3 + restore delay %4")
            .arg(m_timing.activationDelay)
            .arg(m_timing.pasteDelay)
            .arg(shortcutHold)
            .arg(m_timing.restoreDelay);
    return m_reads ? QStringLiteral("read: %1; paste: %2").arg(readSteps(), paste) : paste;
}
