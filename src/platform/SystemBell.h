#pragma once

// The desktop's short warning sound, the answer to a request that cannot be carried out.
class SystemBell {
public:
    virtual ~SystemBell() = default;

    // Rings once at the user's volume. GUI thread; non-blocking.
    virtual void ring() = 0;
};
