#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "foundation/IUserInterface.h"

namespace scriv {

// A user interface for tests: answers come from queues set up in advance, and
// every request is recorded so that a test can check what the person was asked.
// With an empty queue a box answers its default button and an input box its
// default value; file and folder choices answer nothing.
class ScriptedUserInterface : public IUserInterface {
public:
    struct InputRequest {
        std::string prompt;
        std::string title;
        std::string defaultValue;
    };
    struct FolderRequest {
        std::string title;
        std::string startFolder;
    };
    enum class ProgressKind { Init, Update, Dispose };
    struct ProgressCall {
        ProgressKind kind { ProgressKind::Init };
        std::string text;
        int value { 0 }; // the maximum for Init
    };

    // --- answers ---
    void QueueAnswer(int button) { m_answers.push_back(button); }
    // nothing stands for Cancel.
    void QueueInput(std::optional<std::string> value) { m_inputs.push_back(std::move(value)); }
    void QueueFile(std::optional<std::string> path) { m_files.push_back(std::move(path)); }
    void QueueFolder(std::optional<std::string> path) { m_folders.push_back(std::move(path)); }
    // nothing stands for Cancel.
    void QueueChoice(std::optional<std::size_t> index) { m_choices.push_back(index); }
    // The nth ProgressUpdate (counting from 1 over the object's life) asks the
    // run to stop, as a person pressing Cancel at that moment.
    void CancelAtUpdate(int n) { m_cancelAtUpdate = n; }
    void RequestCancel() { m_cancelRequested = true; }

    // --- what was asked ---
    const std::vector<MessageBoxRequest>& MessageBoxes() const { return m_boxes; }
    // The buttons the boxes were answered with, in order.
    const std::vector<int>& Answers() const { return m_given; }
    const std::vector<InputRequest>& InputRequests() const { return m_inputRequests; }
    const std::vector<FileChoiceRequest>& FileRequests() const { return m_fileRequests; }
    const std::vector<FolderRequest>& FolderRequests() const { return m_folderRequests; }
    const std::vector<ProgressCall>& ProgressCalls() const { return m_progress; }
    int UpdateCount() const { return m_updates; }
    // Answers queued but never asked for.
    std::size_t PendingAnswers() const { return m_answers.size() + m_inputs.size() + m_files.size() + m_folders.size(); }

    // ^IUserInterface
    int MessageBox(const MessageBoxRequest& request) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
        const std::string& defaultValue) override;
    std::optional<std::string> ChooseFile(const FileChoiceRequest& request) override;
    std::optional<std::string> ChooseFolder(const std::string& title, const std::string& startFolder) override;
    std::optional<std::size_t> ChooseFromList(const std::string& title, const std::vector<std::string>& items,
        std::size_t defaultIndex) override;
    // The lists offered, in order.
    const std::vector<std::vector<std::string>>& ListRequests() const { return m_listRequests; }
    void ProgressInit(const std::string& text, int maximum) override;
    void ProgressUpdate(const std::string& text, int value) override;
    void ProgressDispose() override;
    bool CancelRequested() override { return m_cancelRequested; }
    void ClearCancelRequest() override { m_cancelRequested = false; }
    // Recorded, never shown: a scripted run starts no desktop program.
    bool OpenDocument(const std::string& path) override
    {
        m_openedDocuments.push_back(path);
        return true;
    }
    const std::vector<std::string>& OpenedDocuments() const { return m_openedDocuments; }

private:
    std::deque<int> m_answers;
    std::deque<std::optional<std::string>> m_inputs;
    std::deque<std::optional<std::string>> m_files;
    std::deque<std::optional<std::string>> m_folders;
    std::deque<std::optional<std::size_t>> m_choices;
    std::vector<std::vector<std::string>> m_listRequests;
    std::vector<MessageBoxRequest> m_boxes;
    std::vector<int> m_given;
    std::vector<InputRequest> m_inputRequests;
    std::vector<FileChoiceRequest> m_fileRequests;
    std::vector<FolderRequest> m_folderRequests;
    std::vector<ProgressCall> m_progress;
    std::vector<std::string> m_openedDocuments;
    int m_updates { 0 };
    int m_cancelAtUpdate { 0 };
    bool m_cancelRequested { false };
};

}  // namespace scriv
