#pragma once

#include "QStringPrinting.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <optional>

// Runs the event loop until done() holds or the guard runs out, so this process keeps serving whatever
// clipboard it owns while it waits; returns done().
bool spinUntil(const std::function<bool()>& done, std::chrono::milliseconds guard = std::chrono::seconds(5));
// Lets the event loop run for a while, as a person pauses between keys.
void pauseFor(std::chrono::milliseconds duration);

// Runs a command-line tool to its end without blocking the event loop; its standard output, or nullopt
// when it failed to start, did not finish within the guard or exited with an error.
std::optional<QByteArray> runTool(const QString& program, const QStringList& arguments,
                                  const QByteArray& input = {});

// Waits until an EWMH window manager answers: windows mapped before it runs are never activated.
bool waitForWindowManager();

// The X id of the first visible window matching xdotool search criteria ("--name", "^Title$"), waiting up
// to guard for it to appear.
std::optional<QString> findWindow(const QStringList& criteria,
                                  std::chrono::milliseconds guard = std::chrono::seconds(10));
// Whether a visible window has exactly this title.
bool windowShown(const QString& title);
// Whether the window with the input focus has exactly this title.
bool windowFocused(const QString& title);
// Starts a tray host (trayer) docked at the top right in host and waits until it can take tray icons.
bool startTrayHost(QProcess& host);
// The CLIPBOARD selection in this type as an independent client reads it; this process keeps serving it.
std::optional<QByteArray> clipboardBytes(const QString& type = QStringLiteral("UTF8_STRING"));
