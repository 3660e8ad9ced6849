#include "studio/StudioEvents.h"

#include <algorithm>

namespace scriv::studio {

StudioEvents::Subscription::~Subscription()
{
    m_owner.Unsubscribe(this);
}

std::optional<std::string> StudioEvents::Subscription::Next(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_owner.m_mutex);
    m_owner.m_wake.wait_for(lock, timeout, [&] { return m_owner.m_closed || !m_queue.empty(); });
    if (m_owner.m_closed || m_queue.empty())
        return std::nullopt;
    std::string event = std::move(m_queue.front());
    m_queue.pop_front();
    return event;
}

bool StudioEvents::Subscription::Closed() const
{
    std::lock_guard lock(m_owner.m_mutex);
    return m_owner.m_closed;
}

StudioEvents::~StudioEvents()
{
    Close();
}

void StudioEvents::Publish(const nlohmann::json& event, const std::string& keepAs)
{
    std::string text = event.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    {
        std::lock_guard lock(m_mutex);
        if (m_closed)
            return;
        if (!keepAs.empty()) {
            if (!m_kept.contains(keepAs))
                m_keptOrder.push_back(keepAs);
            m_kept[keepAs] = text;
        }
        for (Subscription* subscriber : m_subscribers)
            subscriber->m_queue.push_back(text);
    }
    m_wake.notify_all();
}

void StudioEvents::Forget(const std::string& key)
{
    std::lock_guard lock(m_mutex);
    m_kept.erase(key);
    std::erase(m_keptOrder, key);
}

std::shared_ptr<StudioEvents::Subscription> StudioEvents::Subscribe()
{
    std::shared_ptr<Subscription> subscription(new Subscription(*this));
    std::lock_guard lock(m_mutex);
    for (const std::string& key : m_keptOrder)
        subscription->m_queue.push_back(m_kept[key]);
    m_subscribers.push_back(subscription.get());
    return subscription;
}

void StudioEvents::Unsubscribe(Subscription* subscription)
{
    std::lock_guard lock(m_mutex);
    std::erase(m_subscribers, subscription);
    if (m_subscribers.empty())
        m_noSubscriberSince = Clock::now();
}

std::size_t StudioEvents::SubscriberCount() const
{
    std::lock_guard lock(m_mutex);
    return m_subscribers.size();
}

StudioEvents::Clock::time_point StudioEvents::NoSubscriberSince() const
{
    std::lock_guard lock(m_mutex);
    return m_noSubscriberSince;
}

void StudioEvents::Close()
{
    {
        std::lock_guard lock(m_mutex);
        m_closed = true;
    }
    m_wake.notify_all();
}

bool StudioEvents::IsClosed() const
{
    std::lock_guard lock(m_mutex);
    return m_closed;
}

}  // namespace scriv::studio
