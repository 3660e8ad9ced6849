#include "server/CTimer.h"

#include <chrono>

#include "foundation/EventLoop.h"

namespace scriv {

CTimer::CTimer(EventLoop& loop, TickHandler onTick)
    : m_loop(loop)
    , m_onTick(std::move(onTick))
{
}

void CTimer::SetTimer(int intervalMilliseconds, std::string text)
{
    // The scheduled tick owns its own copy of the handler, like the private
    // timer window of each timer.
    m_loop.PostDelayed(std::chrono::milliseconds(intervalMilliseconds),
        [handler = m_onTick, text = std::move(text)] {
            if (handler)
                handler(text);
        });
}

struct CRequestQueue::State {
    RequestHandler handler;
    std::unique_ptr<CTimer> timer;
};

CRequestQueue::CRequestQueue(EventLoop& loop, RequestHandler handler)
    : m_loop(loop)
    , m_state(std::make_shared<State>())
{
    m_state->handler = std::move(handler);
}

CRequestQueue::~CRequestQueue()
{
    // Ticks that are still on their way find the queue gone and do nothing.
    m_state->timer.reset();
}

void CRequestQueue::Queue(const std::string& text)
{
    std::weak_ptr<State> weak = m_state;
    m_state->timer = std::make_unique<CTimer>(m_loop, [weak](const std::string& request) {
        auto state = weak.lock();
        if (!state)
            return;
        state->timer.reset();
        if (state->handler)
            state->handler(request);
    });
    m_state->timer->SetTimer(kIntervalMilliseconds, text);
}

bool CRequestQueue::HasPendingTimer() const
{
    return m_state->timer != nullptr;
}

}  // namespace scriv
