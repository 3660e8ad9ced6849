#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace scriv::studio {

// The events the studio sends to its pages (dialogs, progress, runs, help to
// show). Any thread may publish; each connected page reads its own queue.
// An event published with a key is also kept, and a page that connects later
// gets every kept event first: a reloaded page sees the open dialog and the
// progress of a running generation.
class StudioEvents {
public:
    using Clock = std::chrono::steady_clock;

    // One page's queue, read by the thread that streams to that page.
    class Subscription {
    public:
        ~Subscription();
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;

        // The next event as JSON text; nothing when none came within the
        // timeout or the channel is closed.
        std::optional<std::string> Next(std::chrono::milliseconds timeout);
        bool Closed() const;

    private:
        friend class StudioEvents;
        explicit Subscription(StudioEvents& owner)
            : m_owner(owner)
        {
        }
        StudioEvents& m_owner;
        std::deque<std::string> m_queue;
    };

    StudioEvents() = default;
    ~StudioEvents();
    StudioEvents(const StudioEvents&) = delete;
    StudioEvents& operator=(const StudioEvents&) = delete;

    // Sends an event to every page; with keepAs, it is also kept under that
    // key (replacing the event kept before) for pages that connect later.
    void Publish(const nlohmann::json& event, const std::string& keepAs = {});
    // Stops keeping the event of that key.
    void Forget(const std::string& key);
    // A new page's queue, holding the kept events in the order they were kept.
    std::shared_ptr<Subscription> Subscribe();

    std::size_t SubscriberCount() const;
    // When the last page went away (or the channel was made), while none is connected.
    Clock::time_point NoSubscriberSince() const;
    // Wakes every reader for good; later publishing does nothing.
    void Close();
    bool IsClosed() const;

private:
    void Unsubscribe(Subscription* subscription);

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::vector<Subscription*> m_subscribers;
    // Kept events by key, and the order in which their keys were first kept.
    std::map<std::string, std::string> m_kept;
    std::vector<std::string> m_keptOrder;
    Clock::time_point m_noSubscriberSince { Clock::now() };
    bool m_closed { false };
};

}  // namespace scriv::studio
