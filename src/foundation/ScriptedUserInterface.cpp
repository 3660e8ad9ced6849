#include "foundation/ScriptedUserInterface.h"

namespace scriv {

namespace {

template<typename T>
std::optional<T> TakeFront(std::deque<T>& queue)
{
    if (queue.empty())
        return std::nullopt;
    T value = std::move(queue.front());
    queue.pop_front();
    return value;
}

}  // namespace

int ScriptedUserInterface::MessageBox(const MessageBoxRequest& request)
{
    m_boxes.push_back(request);
    int button = TakeFront(m_answers).value_or(DefaultButtonOf(request.flags));
    m_given.push_back(button);
    return button;
}

std::optional<std::string> ScriptedUserInterface::InputBox(const std::string& prompt, const std::string& title,
    const std::string& defaultValue)
{
    m_inputRequests.push_back({ prompt, title, defaultValue });
    if (m_inputs.empty())
        return defaultValue;
    return *TakeFront(m_inputs);
}

std::optional<std::string> ScriptedUserInterface::ChooseFile(const FileChoiceRequest& request)
{
    m_fileRequests.push_back(request);
    return TakeFront(m_files).value_or(std::nullopt);
}

std::optional<std::string> ScriptedUserInterface::ChooseFolder(const std::string& title, const std::string& startFolder)
{
    m_folderRequests.push_back({ title, startFolder });
    return TakeFront(m_folders).value_or(std::nullopt);
}

std::optional<std::size_t> ScriptedUserInterface::ChooseFromList(const std::string& title,
    const std::vector<std::string>& items, std::size_t defaultIndex)
{
    m_listRequests.push_back(items);
    if (m_choices.empty())
        return items.empty() ? std::nullopt : std::optional<std::size_t>(defaultIndex);
    return *TakeFront(m_choices);
}

void ScriptedUserInterface::ProgressInit(const std::string& text, int maximum)
{
    m_progress.push_back({ ProgressKind::Init, text, maximum });
}

void ScriptedUserInterface::ProgressUpdate(const std::string& text, int value)
{
    m_progress.push_back({ ProgressKind::Update, text, value });
    ++m_updates;
    if (m_updates == m_cancelAtUpdate)
        m_cancelRequested = true;
}

void ScriptedUserInterface::ProgressDispose()
{
    m_progress.push_back({ ProgressKind::Dispose, {}, 0 });
}

}  // namespace scriv
