#pragma once

#include <functional>
#include <memory>
#include <string>

namespace scriv {

class EventLoop;

// A timer that fires once: SetTimer starts it, and on its tick it raises Tick
// with the text it was given. A tick that has been started happens even when
// the CTimer object is gone by then, as a window timer would.
class CTimer {
public:
    using TickHandler = std::function<void(const std::string& text)>;

    CTimer(EventLoop& loop, TickHandler onTick);

    void SetTimer(int intervalMilliseconds, std::string text);

private:
    EventLoop& m_loop;
    TickHandler m_onTick;
};

// The server's one deferred path: a request is handled 100 ms later, outside
// the call stack of whoever asked for it.
class CRequestQueue {
public:
    using RequestHandler = std::function<void(const std::string& request)>;

    CRequestQueue(EventLoop& loop, RequestHandler handler);
    ~CRequestQueue();

    // Starts a new timer for the request; an earlier one still fires.
    void Queue(const std::string& text);
    // Whether the last queued timer has not fired yet.
    bool HasPendingTimer() const;

    static constexpr int kIntervalMilliseconds = 100;

private:
    struct State;
    EventLoop& m_loop;
    std::shared_ptr<State> m_state;
};

}  // namespace scriv
