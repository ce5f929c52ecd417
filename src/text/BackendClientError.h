#pragma once

#include "core/MivoraError.h"

// A failure of the AI backend client that the user sees as it stands.
class BackendClientError : public MivoraError {
public:
    enum class Kind { invalidURL, emptyInput, emptyResult, server };

    static BackendClientError invalidURL()
    {
        return {Kind::invalidURL, QStringLiteral("Backend URL is invalid.")};
    }
    static BackendClientError emptyInput()
    {
        return {Kind::emptyInput, QStringLiteral("No text to process.")};
    }
    static BackendClientError emptyResult()
    {
        return {Kind::emptyResult, QStringLiteral("AI returned an empty result.")};
    }
    static BackendClientError server(QString text) { return {Kind::server, std::move(text)}; }

    Kind kind() const noexcept { return m_kind; }

private:
    BackendClientError(Kind kind, QString description) : MivoraError(std::move(description)), m_kind(kind) {}

    Kind m_kind;
};
