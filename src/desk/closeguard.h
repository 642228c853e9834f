#pragma once

class MdiGraphChild;

/// Asked before a graph window closes.
class CloseGuard {
public:
    virtual ~CloseGuard() = default;

    /// Whether `child` may close; the user may be asked.
    virtual bool mayClose(MdiGraphChild *child) = 0;
};
