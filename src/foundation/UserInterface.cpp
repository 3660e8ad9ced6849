#include "foundation/ConsoleUserInterface.h"
#include "foundation/IUserInterface.h"
#include "foundation/System.h"

namespace scriv {

namespace {

std::unique_ptr<IUserInterface>& Instance()
{
    static std::unique_ptr<IUserInterface> ui;
    return ui;
}

}  // namespace

std::vector<int> ButtonsOf(int flags)
{
    switch (flags & 7) {
    case msgbox::kOkCancel:
        return { vbOK, vbCancel };
    case msgbox::kAbortRetryIgnore:
        return { vbAbort, vbRetry, vbIgnore };
    case msgbox::kYesNoCancel:
        return { vbYes, vbNo, vbCancel };
    case msgbox::kYesNo:
        return { vbYes, vbNo };
    case msgbox::kRetryCancel:
        return { vbRetry, vbCancel };
    default:
        return { vbOK };
    }
}

int DefaultButtonOf(int flags)
{
    std::vector<int> buttons = ButtonsOf(flags);
    std::size_t index = static_cast<std::size_t>((flags & 0x300) >> 8);
    // A default beyond the buttons shown falls back to the first, as the
    // platform's boxes do.
    return index < buttons.size() ? buttons[index] : buttons.front();
}

const char* ButtonName(int button)
{
    switch (button) {
    case vbOK:
        return "vbOK";
    case vbCancel:
        return "vbCancel";
    case vbAbort:
        return "vbAbort";
    case vbRetry:
        return "vbRetry";
    case vbIgnore:
        return "vbIgnore";
    case vbYes:
        return "vbYes";
    case vbNo:
        return "vbNo";
    default:
        return "";
    }
}

const char* ButtonCaption(int button)
{
    switch (button) {
    case vbOK:
        return "OK";
    case vbCancel:
        return "Cancel";
    case vbAbort:
        return "Abort";
    case vbRetry:
        return "Retry";
    case vbIgnore:
        return "Ignore";
    case vbYes:
        return "Yes";
    case vbNo:
        return "No";
    default:
        return "";
    }
}

bool IUserInterface::OpenDocument(const std::string& path)
{
    return ShellOpen(path);
}

IUserInterface& UserInterface()
{
    auto& ui = Instance();
    if (!ui)
        ui = std::make_unique<ConsoleUserInterface>();
    return *ui;
}

std::unique_ptr<IUserInterface> SetUserInterface(std::unique_ptr<IUserInterface> ui)
{
    std::unique_ptr<IUserInterface> previous = std::move(Instance());
    Instance() = std::move(ui);
    return previous;
}

}  // namespace scriv
