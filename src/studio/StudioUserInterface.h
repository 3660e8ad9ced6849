#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "foundation/IUserInterface.h"

namespace scriv {
class EventLoop;
}

namespace scriv::studio {

class StudioEvents;

// The user interface of the studio: every box, question, file choice and the
// progress window go to the page as events, and the logic thread waits for the
// page's answer while it keeps serving other requests (the loop is pumped).
// With no page connected for a while a question takes its default answer, so
// that a run whose browser tab was closed goes on. Lives on the logic thread.
class StudioUserInterface : public IUserInterface {
public:
    // grace: how long a question waits with no page connected before it takes
    // its default answer.
    StudioUserInterface(EventLoop& loop, StudioEvents& events, std::chrono::milliseconds grace);

    // ^IUserInterface
    int MessageBox(const MessageBoxRequest& request) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
        const std::string& defaultValue) override;
    std::optional<std::string> ChooseFile(const FileChoiceRequest& request) override;
    std::optional<std::string> ChooseFolder(const std::string& title, const std::string& startFolder) override;
    std::optional<std::size_t> ChooseFromList(const std::string& title, const std::vector<std::string>& items,
        std::size_t defaultIndex) override;
    void ProgressInit(const std::string& text, int maximum) override;
    void ProgressUpdate(const std::string& text, int value) override;
    void ProgressDispose() override;
    bool CancelRequested() override { return m_cancelRequested; }
    void ClearCancelRequest() override { m_cancelRequested = false; }
    bool OpenDocument(const std::string& path) override;

    // What the studio can show itself (a compiled help in its viewer); a
    // viewer answering false leaves the path to the desktop.
    void SetDocumentViewer(std::function<bool(const std::string&)> viewer) { m_viewer = std::move(viewer); }

    // --- from the page (called on the logic thread) ---
    // Gives a waiting question its answer: {"button": n} for a box (one of its
    // buttons), {"value": text} for an input or a path, {"index": n} for a list,
    // {"cancel": true} for any but a box. False when no question of that id
    // waits or the answer does not fit it.
    bool Answer(std::uint64_t id, const nlohmann::json& answer);
    // The Cancel button of the progress window.
    void RequestCancel() { m_cancelRequested = true; }
    // From now on every question takes its default answer at once.
    void Shutdown() { m_shuttingDown = true; }

    // The number of questions waiting for an answer now.
    std::size_t WaitingCount() const { return m_waiting.size(); }
    bool ProgressShown() const { return m_progressShown; }

    // "OK", "Cancel", "Yes" ... of a button code.
    static std::string ButtonLabel(int button);
    // "critical", "question", "exclamation", "information" or "" of box flags.
    static std::string IconName(int flags);

private:
    struct Waiting {
        nlohmann::json dialog;
        std::optional<nlohmann::json> answer;
    };

    // Publishes the question and pumps the loop until it is answered; the
    // fallback stands when no page answers.
    nlohmann::json Ask(nlohmann::json dialog, const nlohmann::json& fallback);
    static bool Fits(const nlohmann::json& dialog, const nlohmann::json& answer);
    void PublishProgress();

    EventLoop& m_loop;
    StudioEvents& m_events;
    std::chrono::milliseconds m_grace;
    std::map<std::uint64_t, Waiting> m_waiting;
    std::uint64_t m_nextId { 0 };
    std::string m_progressText;
    int m_progressValue { 0 };
    int m_progressMaximum { 0 };
    bool m_progressShown { false };
    bool m_cancelRequested { false };
    std::function<bool(const std::string&)> m_viewer;
    bool m_shuttingDown { false };
};

}  // namespace scriv::studio
