#pragma once

#include <csignal>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "foundation/IUserInterface.h"

namespace scriv {

struct ConsoleOptions {
    // Ask on the terminal. Otherwise every box is printed with the answer taken.
    bool interactive { false };
    // Without asking, answer Yes or OK where the box offers it, not the default.
    bool assumeYes { false };
    // Progress as one line redrawn in place; otherwise one line per new text.
    bool progressInPlace { false };
};

// Options for this process: interactive and redrawing progress when stdin and
// stderr are terminals.
ConsoleOptions DetectConsoleOptions(bool assumeYes = false);

// The user interface of the command line: boxes and prompts on stderr, answers
// from stdin. A Ctrl-C while progress is shown asks the run to stop.
class ConsoleUserInterface : public IUserInterface {
public:
    explicit ConsoleUserInterface(ConsoleOptions options = {});
    // Reads answers from in and writes everything to out (tests give streams).
    ConsoleUserInterface(ConsoleOptions options, std::istream& in, std::ostream& out);
    ~ConsoleUserInterface() override;

    const ConsoleOptions& Options() const { return m_options; }

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
    bool CancelRequested() override;
    void ClearCancelRequest() override;

private:
    int AskButton(const MessageBoxRequest& request);
    int UnattendedButton(int flags) const;
    std::optional<std::string> ReadLine();
    std::optional<std::string> AskPath(const std::string& prompt, const std::string& startFolder);
    void DrawProgress();
    void InstallInterruptHandler();
    void RestoreInterruptHandler();

    ConsoleOptions m_options;
    std::istream& m_in;
    std::ostream& m_out;
    std::string m_progressText;
    std::string m_lastPrintedText;
    int m_progressValue { 0 };
    int m_progressMaximum { 0 };
    bool m_progressShown { false };
    bool m_handlerInstalled { false };
    struct sigaction m_previousHandler {};
};

}  // namespace scriv
