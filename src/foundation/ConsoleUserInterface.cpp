#include "foundation/ConsoleUserInterface.h"

#include <algorithm>

#include <atomic>
#include <iostream>
#include <unistd.h>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// Set by the Ctrl-C handler; an atomic flag is all a handler may touch.
std::atomic<bool> g_interrupted { false };
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void OnInterrupt(int)
{
    g_interrupted.store(true);
}

// "[Y]es" - the first letter is what the person types.
std::string ButtonLabel(int button)
{
    std::string caption = ButtonCaption(button);
    return caption.empty() ? "?" : caption;
}

const char* IconName(int flags)
{
    switch (flags & 0x70) {
    case msgbox::kCritical:
        return "error";
    case msgbox::kQuestion:
        return "question";
    case msgbox::kExclamation:
        return "warning";
    case msgbox::kInformation:
        return "information";
    default:
        return nullptr;
    }
}

std::string ForTerminal(std::string_view text)
{
    return ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\r", "\n");
}

std::optional<int> MatchButton(std::string_view answer, const std::vector<int>& buttons)
{
    for (int button : buttons) {
        std::string label = ButtonLabel(button);
        if (EqualsNoCase(answer, label) || EqualsNoCase(answer, label.substr(0, 1)))
            return button;
    }
    return std::nullopt;
}

}  // namespace

ConsoleOptions DetectConsoleOptions(bool assumeYes)
{
    bool terminal = ::isatty(STDERR_FILENO) != 0;
    return ConsoleOptions { terminal && ::isatty(STDIN_FILENO) != 0, assumeYes, terminal };
}

ConsoleUserInterface::ConsoleUserInterface(ConsoleOptions options)
    : ConsoleUserInterface(options, std::cin, std::cerr)
{
}

ConsoleUserInterface::ConsoleUserInterface(ConsoleOptions options, std::istream& in, std::ostream& out)
    : m_options(options)
    , m_in(in)
    , m_out(out)
{
}

ConsoleUserInterface::~ConsoleUserInterface()
{
    RestoreInterruptHandler();
}

int ConsoleUserInterface::MessageBox(const MessageBoxRequest& request)
{
    const char* icon = IconName(request.flags);
    m_out << '\n' << request.title;
    if (icon)
        m_out << " (" << icon << ")";
    m_out << '\n' << ForTerminal(request.text) << '\n';
    if (m_options.interactive)
        return AskButton(request);
    int button = UnattendedButton(request.flags);
    m_out << "=> " << ButtonLabel(button) << (m_options.assumeYes && button != DefaultButtonOf(request.flags) ? " (assumed)" : " (default)")
          << std::endl;
    return button;
}

int ConsoleUserInterface::UnattendedButton(int flags) const
{
    std::vector<int> buttons = ButtonsOf(flags);
    if (m_options.assumeYes) {
        for (int wanted : { vbYes, vbOK })
            for (int button : buttons)
                if (button == wanted)
                    return button;
    }
    return DefaultButtonOf(flags);
}

int ConsoleUserInterface::AskButton(const MessageBoxRequest& request)
{
    std::vector<int> buttons = ButtonsOf(request.flags);
    int fallback = DefaultButtonOf(request.flags);
    std::string choices;
    for (int button : buttons) {
        std::string label = ButtonLabel(button);
        choices += (choices.empty() ? "[" : " / [") + label.substr(0, 1) + "]" + label.substr(1);
    }
    choices += " (default " + ButtonLabel(fallback) + "): ";
    for (;;) {
        m_out << choices << std::flush;
        std::optional<std::string> answer = ReadLine();
        if (!answer) {
            m_out << '\n';
            return fallback;
        }
        std::string trimmed = TrimWhitespace(*answer);
        if (trimmed.empty())
            return fallback;
        if (std::optional<int> button = MatchButton(trimmed, buttons))
            return *button;
    }
}

std::optional<std::string> ConsoleUserInterface::ReadLine()
{
    std::string line;
    if (!std::getline(m_in, line))
        return std::nullopt;
    return StripLineEnds(line);
}

std::optional<std::string> ConsoleUserInterface::InputBox(const std::string& prompt, const std::string& title,
    const std::string& defaultValue)
{
    m_out << '\n' << title << '\n' << ForTerminal(prompt) << '\n';
    if (!m_options.interactive) {
        m_out << "=> " << defaultValue << " (default)" << std::endl;
        return defaultValue;
    }
    m_out << "[" << defaultValue << "]: " << std::flush;
    std::optional<std::string> answer = ReadLine();
    if (!answer) {
        m_out << '\n';
        return std::nullopt;
    }
    return answer->empty() ? defaultValue : *answer;
}

std::optional<std::string> ConsoleUserInterface::AskPath(const std::string& prompt, const std::string& startFolder)
{
    m_out << '\n' << prompt << '\n';
    if (!m_options.interactive) {
        m_out << "=> nothing chosen (no terminal to ask)" << std::endl;
        return std::nullopt;
    }
    m_out << "Path (empty to cancel)";
    if (!startFolder.empty())
        m_out << ", relative to " << startFolder;
    m_out << ": " << std::flush;
    std::optional<std::string> answer = ReadLine();
    if (!answer || TrimWhitespace(*answer).empty())
        return std::nullopt;
    std::string path = TrimWhitespace(*answer);
    if (!IsAbsolutePath(path) && !startFolder.empty())
        path = JoinPath(startFolder, path);
    return path;
}

std::optional<std::string> ConsoleUserInterface::ChooseFile(const FileChoiceRequest& request)
{
    std::string prompt = request.title;
    if (!request.filterName.empty() || !request.pattern.empty())
        prompt += " - " + request.filterName + (request.pattern.empty() ? "" : " " + request.pattern);
    return AskPath(prompt, request.startFolder);
}

std::optional<std::string> ConsoleUserInterface::ChooseFolder(const std::string& title, const std::string& startFolder)
{
    std::optional<std::string> folder = AskPath(title, startFolder);
    if (folder)
        return AddBackslash(*folder);
    return folder;
}

std::optional<std::size_t> ConsoleUserInterface::ChooseFromList(const std::string& title,
    const std::vector<std::string>& items, std::size_t defaultIndex)
{
    m_out << '\n' << ForTerminal(title) << '\n';
    for (std::size_t i = 0; i < items.size(); ++i)
        m_out << "  " << (i + 1) << ". " << ForTerminal(items[i]) << '\n';
    if (items.empty()) {
        m_out << "=> nothing to choose" << std::endl;
        return std::nullopt;
    }
    defaultIndex = std::min(defaultIndex, items.size() - 1);
    if (!m_options.interactive || m_options.assumeYes) {
        m_out << "=> " << (defaultIndex + 1) << " (default)" << std::endl;
        return defaultIndex;
    }
    while (true) {
        m_out << "Number (default " << (defaultIndex + 1) << ", empty line to take it, q to cancel): " << std::flush;
        std::optional<std::string> answer = ReadLine();
        if (!answer)
            return std::nullopt;
        std::string text = TrimWhitespace(*answer);
        if (text.empty())
            return defaultIndex;
        if (EqualsNoCase(text, "q"))
            return std::nullopt;
        auto number = ParseInteger(text);
        if (number && *number >= 1 && static_cast<std::size_t>(*number) <= items.size())
            return static_cast<std::size_t>(*number - 1);
    }
}

void ConsoleUserInterface::ProgressInit(const std::string& text, int maximum)
{
    InstallInterruptHandler();
    m_progressText = text;
    m_progressMaximum = maximum;
    m_progressValue = 0;
    m_lastPrintedText.clear();
    m_progressShown = true;
    DrawProgress();
}

void ConsoleUserInterface::ProgressUpdate(const std::string& text, int value)
{
    if (!text.empty())
        m_progressText = text;
    m_progressValue = value;
    DrawProgress();
}

void ConsoleUserInterface::ProgressDispose()
{
    if (m_progressShown && m_options.progressInPlace)
        m_out << '\n' << std::flush;
    m_progressShown = false;
    m_lastPrintedText.clear();
    RestoreInterruptHandler();
}

void ConsoleUserInterface::DrawProgress()
{
    std::string counts;
    if (m_progressMaximum > 0)
        counts = " (" + std::to_string(m_progressValue) + "/" + std::to_string(m_progressMaximum) + ")";
    if (m_options.progressInPlace) {
        // Carriage return and erase-to-end redraw the one line.
        m_out << "\r\x1b[K" << ForTerminal(m_progressText) << counts << std::flush;
        m_progressShown = true;
        return;
    }
    // A log file wants a line per step, not one per tick; the counts of a
    // step's first moment would only mislead there.
    if (m_progressText == m_lastPrintedText)
        return;
    m_out << ForTerminal(m_progressText) << std::endl;
    m_lastPrintedText = m_progressText;
}

bool ConsoleUserInterface::CancelRequested()
{
    return g_interrupted.load();
}

void ConsoleUserInterface::ClearCancelRequest()
{
    g_interrupted.store(false);
}

void ConsoleUserInterface::InstallInterruptHandler()
{
    if (m_handlerInstalled)
        return;
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    m_handlerInstalled = ::sigaction(SIGINT, &action, &m_previousHandler) == 0;
}

void ConsoleUserInterface::RestoreInterruptHandler()
{
    if (!m_handlerInstalled)
        return;
    ::sigaction(SIGINT, &m_previousHandler, nullptr);
    m_handlerInstalled = false;
}

}  // namespace scriv
