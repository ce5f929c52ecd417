#include "shell/ResidentPanels.h"

void ResidentPanels::toggleQuickPanel() {}

void ResidentPanels::toggleClipboardPanel() {}

void ResidentPanels::showAssistant(const QString&) {}

void ResidentPanels::showReply(const QString&, const AIReplyStyle&, const QString&) {}

void ResidentPanels::showTranslationPreview() {}
