#pragma once

// What callers ask of the AI backend client.
enum class BackendAction { fix, improve, emoji, translate, assistant, chatReply };
