#include "foundation/MsgBox.h"

#include "foundation/CTraceLog.h"
#include "foundation/IUserInterface.h"

namespace scriv {

int MsgBox(std::string_view text, int flags, std::string_view title, std::string_view helpFile, int context,
    std::string_view source)
{
    MessageBoxRequest request;
    request.text = std::string(text);
    request.flags = flags;
    request.title = title.empty() ? std::string(kMessageBoxTitle) : std::string(title);
    request.source = std::string(source);
    int button = UserInterface().MessageBox(request);
    CTraceLog& log = TraceLog();
    if (log.Verbose())
        log.addMessage(std::string(text) + ", source = " + std::string(source) + " => " + ButtonName(button), false);
    return button;
}

std::optional<std::string> InputBox(std::string_view prompt, std::string_view title, std::string_view defaultValue)
{
    std::string shownTitle = title.empty() ? std::string(kMessageBoxTitle) : std::string(title);
    std::optional<std::string> answer = UserInterface().InputBox(std::string(prompt), shownTitle, std::string(defaultValue));
    CTraceLog& log = TraceLog();
    if (log.Verbose())
        log.addMessage(std::string(prompt) + " => " + (answer ? "\"" + *answer + "\"" : std::string("cancelled")), false);
    return answer;
}

int WarningDialog(std::string_view text)
{
    return MsgBox(text, msgbox::kExclamation, kMessageBoxTitle, "", 0, "mMsgBox.WarningDialog");
}

}  // namespace scriv
