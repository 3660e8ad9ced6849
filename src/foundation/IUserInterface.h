#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace scriv {

// Button codes a message box answers with.
enum MsgBoxResult : int {
    vbOK = 1,
    vbCancel = 2,
    vbAbort = 3,
    vbRetry = 4,
    vbIgnore = 5,
    vbYes = 6,
    vbNo = 7,
};

// Flags of a message box: buttons (low 3 bits), icon, default button.
namespace msgbox {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kDefaultButton2 = 256;
inline constexpr int kDefaultButton3 = 512;
}  // namespace msgbox

// The buttons that a set of flags shows, in order, and the one that is the default.
std::vector<int> ButtonsOf(int flags);
int DefaultButtonOf(int flags);
// "vbYes", "vbNo" ... as the trace writes them.
const char* ButtonName(int button);
// "OK", "Yes", "No" ... as a button shows it; "" for no button.
const char* ButtonCaption(int button);

struct MessageBoxRequest {
    std::string text;
    int flags { 0 };
    std::string title;
    // The procedure that asks, for the trace ("CScrivant.GenerateHelpProject").
    std::string source;
};

struct FileChoiceRequest {
    std::string title;
    std::string filterName; // "Scrivant Project (SVP)"
    std::string pattern; // "*.svp"
    std::string startFolder;
    bool forSaving { false };
};

// Everything the program asks of the person in front of it. The console, the
// studio and the tests each supply one.
class IUserInterface {
public:
    virtual ~IUserInterface() = default;

    // Shows a message box and answers the button pressed (MsgBoxResult).
    virtual int MessageBox(const MessageBoxRequest& request) = 0;
    // Asks for a line of text; nothing when the person cancels.
    virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
        const std::string& defaultValue)
        = 0;
    virtual std::optional<std::string> ChooseFile(const FileChoiceRequest& request) = 0;
    virtual std::optional<std::string> ChooseFolder(const std::string& title, const std::string& startFolder) = 0;
    // Offers a list and answers the position chosen; nothing when the person cancels.
    virtual std::optional<std::size_t> ChooseFromList(const std::string& title, const std::vector<std::string>& items,
        std::size_t defaultIndex)
        = 0;

    // Progress of a long run. Init starts a display with a maximum, Update moves it
    // (text may be empty to keep the last), Dispose ends it.
    virtual void ProgressInit(const std::string& text, int maximum) = 0;
    virtual void ProgressUpdate(const std::string& text, int value) = 0;
    virtual void ProgressDispose() = 0;
    // True once the person has asked to stop the current run (Cancel, Ctrl-C).
    virtual bool CancelRequested() = 0;
    virtual void ClearCancelRequest() = 0;

    // Shows a file or folder the run made (a compiled help, a help project) the
    // way this interface can; the desktop's own program opens it otherwise.
    virtual bool OpenDocument(const std::string& path);
};

// The interface of this process. Until one is set, a console interface that
// never prompts (it takes the default answers) is used.
IUserInterface& UserInterface();
// Installs an interface and returns the one it replaces.
std::unique_ptr<IUserInterface> SetUserInterface(std::unique_ptr<IUserInterface> ui);

}  // namespace scriv
