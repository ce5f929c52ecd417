#include "shell/DisplaySession.h"

DisplaySession DisplaySession::fromEnvironment(const QProcessEnvironment& environment)
{
    const bool x11 = !environment.value(QStringLiteral("DISPLAY")).isEmpty();
    const bool wayland = !environment.value(QStringLiteral("WAYLAND_DISPLAY")).isEmpty() ||
                         environment.value(QStringLiteral("XDG_SESSION_TYPE")) == u"wayland";
    if (x11) {
        return {wayland ? Kind::xwayland : Kind::x11};
    }
    return {wayland ? Kind::waylandOnly : Kind::none};
}

QString DisplaySession::refusal() const
{
    switch (kind) {
    case Kind::waylandOnly:
        return QStringLiteral("MivoraAI needs an X11 session: this Wayland session offers no X11 display.");
    case Kind::none:
        return QStringLiteral("MivoraAI needs an X11 display: DISPLAY is not set.");
    case Kind::x11:
    case Kind::xwayland:
        break;
    }
    return {};
}

QString DisplaySession::warning(bool russian) const
{
    if (kind != Kind::xwayland) {
        return {};
    }
    return russian ? QStringLiteral("Wayland: горячие клавиши и чтение других приложений могут не работать")
                   : QStringLiteral("Wayland: hotkeys and reading other apps may not work here");
}
