#include "studio/StudioUserInterface.h"

#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/EventLoop.h"
#include "studio/StudioEvents.h"

namespace scriv::studio {

namespace {

using json = nlohmann::json;

constexpr std::chrono::milliseconds kPumpSlice { 200 };
constexpr const char* kProgressKey = "progress";

std::string DialogKey(std::uint64_t id)
{
    return "dialog:" + std::to_string(id);
}

}  // namespace

StudioUserInterface::StudioUserInterface(EventLoop& loop, StudioEvents& events, std::chrono::milliseconds grace)
    : m_loop(loop)
    , m_events(events)
    , m_grace(grace)
{
}

std::string StudioUserInterface::ButtonLabel(int button)
{
    return ButtonCaption(button);
}

std::string StudioUserInterface::IconName(int flags)
{
    switch (flags & 0x70) {
    case msgbox::kCritical:
        return "critical";
    case msgbox::kQuestion:
        return "question";
    case msgbox::kExclamation:
        return "exclamation";
    case msgbox::kInformation:
        return "information";
    default:
        return "";
    }
}

json StudioUserInterface::Ask(json dialog, const json& fallback)
{
    std::uint64_t id = ++m_nextId;
    dialog["type"] = "dialog";
    dialog["id"] = id;
    Waiting& waiting = m_waiting[id];
    waiting.dialog = dialog;
    m_events.Publish(dialog, DialogKey(id));

    auto answered = [&] { return waiting.answer.has_value() || m_shuttingDown; };
    while (!answered()) {
        bool pageGone = m_events.SubscriberCount() == 0
            && StudioEvents::Clock::now() - m_events.NoSubscriberSince() >= m_grace;
        if (pageGone) {
            Trace("Studio: no page is connected; the question " + std::to_string(id) + " takes its default answer.");
            break;
        }
        m_loop.RunUntil(answered, kPumpSlice);
    }
    json answer = waiting.answer.value_or(fallback);
    m_waiting.erase(id);
    m_events.Forget(DialogKey(id));
    m_events.Publish({ { "type", "dialog-closed" }, { "id", id } });
    return answer;
}

bool StudioUserInterface::Fits(const json& dialog, const json& answer)
{
    if (!answer.is_object())
        return false;
    const std::string kind = dialog.value("kind", "");
    if (kind == "message") {
        if (!answer.contains("button") || !answer["button"].is_number_integer())
            return false;
        int button = answer["button"].get<int>();
        for (const json& shown : dialog["buttons"])
            if (shown["code"].get<int>() == button)
                return true;
        return false;
    }
    if (answer.value("cancel", false))
        return true;
    if (kind == "list") {
        if (!answer.contains("index") || !answer["index"].is_number_integer() || answer["index"].get<long long>() < 0)
            return false;
        return answer["index"].get<std::size_t>() < dialog["items"].size();
    }
    return answer.contains("value") && answer["value"].is_string();
}

bool StudioUserInterface::Answer(std::uint64_t id, const json& answer)
{
    auto it = m_waiting.find(id);
    if (it == m_waiting.end() || it->second.answer || !Fits(it->second.dialog, answer))
        return false;
    it->second.answer = answer;
    return true;
}

int StudioUserInterface::MessageBox(const MessageBoxRequest& request)
{
    json buttons = json::array();
    for (int button : ButtonsOf(request.flags))
        buttons.push_back({ { "code", button }, { "label", ButtonLabel(button) } });
    int defaultButton = DefaultButtonOf(request.flags);
    json dialog = {
        { "kind", "message" },
        { "title", request.title },
        { "text", request.text },
        { "flags", request.flags },
        { "icon", IconName(request.flags) },
        { "buttons", buttons },
        { "default", defaultButton },
    };
    json answer = Ask(dialog, { { "button", defaultButton } });
    return answer["button"].get<int>();
}

std::optional<std::string> StudioUserInterface::InputBox(const std::string& prompt, const std::string& title,
    const std::string& defaultValue)
{
    json dialog = { { "kind", "input" }, { "title", title }, { "prompt", prompt }, { "value", defaultValue } };
    json answer = Ask(dialog, { { "value", defaultValue } });
    if (answer.value("cancel", false))
        return std::nullopt;
    return answer["value"].get<std::string>();
}

std::optional<std::string> StudioUserInterface::ChooseFile(const FileChoiceRequest& request)
{
    json dialog = {
        { "kind", "file" },
        { "title", request.title },
        { "filterName", request.filterName },
        { "pattern", request.pattern },
        { "startFolder", request.startFolder },
        { "forSaving", request.forSaving },
    };
    json answer = Ask(dialog, { { "cancel", true } });
    if (answer.value("cancel", false))
        return std::nullopt;
    return answer["value"].get<std::string>();
}

std::optional<std::string> StudioUserInterface::ChooseFolder(const std::string& title, const std::string& startFolder)
{
    json dialog = { { "kind", "folder" }, { "title", title }, { "startFolder", startFolder } };
    json answer = Ask(dialog, { { "cancel", true } });
    if (answer.value("cancel", false))
        return std::nullopt;
    return answer["value"].get<std::string>();
}

std::optional<std::size_t> StudioUserInterface::ChooseFromList(const std::string& title,
    const std::vector<std::string>& items, std::size_t defaultIndex)
{
    if (items.empty())
        return std::nullopt;
    std::size_t chosen = std::min(defaultIndex, items.size() - 1);
    json dialog = { { "kind", "list" }, { "title", title }, { "items", items }, { "default", chosen } };
    json answer = Ask(dialog, { { "index", chosen } });
    if (answer.value("cancel", false))
        return std::nullopt;
    return answer["index"].get<std::size_t>();
}

void StudioUserInterface::PublishProgress()
{
    m_events.Publish({ { "type", "progress" }, { "state", "shown" }, { "text", m_progressText },
                         { "value", m_progressValue }, { "max", m_progressMaximum } },
        kProgressKey);
}

void StudioUserInterface::ProgressInit(const std::string& text, int maximum)
{
    m_progressText = text;
    m_progressValue = 0;
    m_progressMaximum = maximum;
    m_progressShown = true;
    PublishProgress();
}

void StudioUserInterface::ProgressUpdate(const std::string& text, int value)
{
    if (!text.empty())
        m_progressText = text;
    m_progressValue = value;
    if (!m_progressShown)
        return;
    PublishProgress();
    // The progress window keeps the page served: Cancel arrives here.
    m_loop.RunPending();
}

void StudioUserInterface::ProgressDispose()
{
    if (!m_progressShown)
        return;
    m_progressShown = false;
    m_events.Forget(kProgressKey);
    m_events.Publish({ { "type", "progress" }, { "state", "closed" } });
}

bool StudioUserInterface::OpenDocument(const std::string& path)
{
    if (m_viewer && m_viewer(path))
        return true;
    return IUserInterface::OpenDocument(path);
}

}  // namespace scriv::studio
