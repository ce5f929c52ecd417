#pragma once

#include <QString>

class DefaultsStore;

// Where the two servers are and what this build is. The build supplies the values; the per-user defaults
// store may override the servers and the token, so a deployment can be pointed elsewhere without a rebuild.
struct DeploymentConfiguration {
    // Without a trailing "/"; possibly empty or unparsable, which the clients report when they use it.
    QString backendBaseUrl;
    QString backendToken;
    QString updatesBaseUrl;
    // The version and build number reported to the update server.
    QString currentVersion;
    int currentBuild = 0;

    static DeploymentConfiguration builtIn();
    // builtIn() with any non-empty string stored under "mivora.backend.baseURL", "mivora.backend.token" or
    // "mivora.updates.baseURL" taking the place of the built-in value.
    static DeploymentConfiguration forUser(const DefaultsStore& defaults);
    // A decimal integer with an optional leading "+" or "-"; anything else gives 0.
    static int parseBuildNumber(const QString& text);
};
