#include "foundation/EventLoop.h"

namespace scriv {

EventLoop::EventLoop()
    : m_thread(std::this_thread::get_id())
{
}

void EventLoop::Post(Task task)
{
    {
        std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_wake.notify_all();
}

EventLoop::TimerId EventLoop::PostDelayed(std::chrono::milliseconds delay, Task task)
{
    TimerId id = 0;
    {
        std::lock_guard lock(m_mutex);
        id = m_nextTimer++;
        m_timers.emplace(Clock::now() + delay, std::make_pair(id, std::move(task)));
    }
    m_wake.notify_all();
    return id;
}

bool EventLoop::CancelTimer(TimerId id)
{
    std::lock_guard lock(m_mutex);
    for (auto it = m_timers.begin(); it != m_timers.end(); ++it) {
        if (it->second.first == id) {
            m_timers.erase(it);
            return true;
        }
    }
    return false;
}

std::size_t EventLoop::TakeDueTimers(std::deque<Task>& into)
{
    std::size_t taken = 0;
    auto now = Clock::now();
    while (!m_timers.empty() && m_timers.begin()->first <= now) {
        into.push_back(std::move(m_timers.begin()->second.second));
        m_timers.erase(m_timers.begin());
        ++taken;
    }
    return taken;
}

std::size_t EventLoop::RunPending()
{
    std::deque<Task> batch;
    {
        std::lock_guard lock(m_mutex);
        batch.swap(m_tasks);
        TakeDueTimers(batch);
    }
    std::size_t count = batch.size();
    for (Task& task : batch)
        task();
    return count;
}

bool EventLoop::HasPendingWork() const
{
    std::lock_guard lock(m_mutex);
    return !m_tasks.empty() || (!m_timers.empty() && m_timers.begin()->first <= Clock::now());
}

void EventLoop::Run()
{
    {
        std::lock_guard lock(m_mutex);
        m_quit = false;
        m_thread = std::this_thread::get_id();
    }
    while (true) {
        {
            std::unique_lock lock(m_mutex);
            auto ready = [&] {
                return m_quit || !m_tasks.empty() || (!m_timers.empty() && m_timers.begin()->first <= Clock::now());
            };
            while (!ready()) {
                if (m_timers.empty())
                    m_wake.wait(lock);
                else
                    m_wake.wait_until(lock, m_timers.begin()->first);
            }
            if (m_quit && m_tasks.empty())
                return;
        }
        RunPending();
    }
}

void EventLoop::Quit()
{
    {
        std::lock_guard lock(m_mutex);
        m_quit = true;
    }
    m_wake.notify_all();
}

bool EventLoop::RunUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout)
{
    auto deadline = Clock::now() + timeout;
    while (!done()) {
        if (Clock::now() >= deadline)
            return false;
        if (RunPending() == 0) {
            std::unique_lock lock(m_mutex);
            auto wakeAt = deadline;
            if (!m_timers.empty() && m_timers.begin()->first < wakeAt)
                wakeAt = m_timers.begin()->first;
            if (m_tasks.empty())
                m_wake.wait_until(lock, wakeAt);
        }
    }
    return true;
}

EventLoop& LogicLoop()
{
    static EventLoop loop;
    return loop;
}

}  // namespace scriv
