#pragma once

namespace velm {

/// Redraw of nodes or entries is off for the length of a scope, however that is left.
template <typename Held>
class RedrawOff {
public:
    explicit RedrawOff(Held& held) : held_(held) { held_.setRedraw(false); }
    ~RedrawOff() { held_.setRedraw(true); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;

private:
    Held& held_;
};

} // namespace velm
