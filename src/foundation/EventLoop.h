#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <map>
#include <mutex>
#include <thread>

namespace scriv {

// The loop of the one logic thread: posted tasks and one-shot timers. Every
// object of the logic lives on the thread that runs this loop; other threads
// (the studio's HTTP threads) only post work to it and wait for answers.
class EventLoop {
public:
    using Task = std::function<void()>;
    using Clock = std::chrono::steady_clock;
    using TimerId = std::uint64_t;

    EventLoop();

    // Queues a task; safe from any thread.
    void Post(Task task);
    // Runs a task once after a delay; safe from any thread.
    TimerId PostDelayed(std::chrono::milliseconds delay, Task task);
    bool CancelTimer(TimerId id);

    // Runs the tasks and due timers that are pending now, once, and returns how
    // many ran. Work posted while they run waits for the next call. Re-entrant:
    // a task may call it (the message pump of a long run).
    std::size_t RunPending();
    // Runs until Quit is called, waiting for work in between.
    void Run();
    void Quit();
    // Runs work until done() holds or the timeout passes; true when done() held.
    bool RunUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);

    // Runs f on the loop's thread and answers its result. Called on the loop's
    // own thread it runs f at once.
    template<typename F>
    auto Invoke(F f) -> decltype(f())
    {
        if (IsLoopThread())
            return f();
        auto task = std::make_shared<std::packaged_task<decltype(f())()>>(std::move(f));
        auto result = task->get_future();
        Post([task] { (*task)(); });
        return result.get();
    }

    // The loop's thread is the one that created it, until Run() claims another.
    bool IsLoopThread() const { return std::this_thread::get_id() == m_thread; }
    bool HasPendingWork() const;

private:
    std::size_t TakeDueTimers(std::deque<Task>& into);

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<Task> m_tasks;
    std::multimap<Clock::time_point, std::pair<TimerId, Task>> m_timers;
    TimerId m_nextTimer { 1 };
    bool m_quit { false };
    std::thread::id m_thread;
};

// The loop of the logic thread of this process.
EventLoop& LogicLoop();

}  // namespace scriv
