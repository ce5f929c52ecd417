#pragma once

#include <QString>

class DefaultsStore;

// Hands out what identifies this installation to the AI backend.
class BackendCredentials {
public:
    BackendCredentials(DefaultsStore& defaults, QString token);

    // The upper-case UUID kept under "mivora.deviceID"; made and stored on first use, and again whenever
    // the stored value is empty.
    QString deviceId();
    // The value of the Authorization header.
    QString authorizationValue() const;

private:
    DefaultsStore& m_defaults;
    QString m_token;
};
