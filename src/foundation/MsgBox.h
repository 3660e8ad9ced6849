#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Version.h"

// Every box the program shows passes here, so that each answer can be traced
// and the one user interface of the process (console, studio, tests) asked.
namespace scriv {

// Shows a message box with the flags of IUserInterface.h (buttons + icon +
// default button) and answers the button pressed (vbOK ... vbNo). An empty
// title stands for the default title. helpFile and context (the help topic of
// the box) are taken for the callers' sake; no interface shows them. source is the asking procedure
// ("Class.Procedure"), written to a verbose trace with the answer.
int MsgBox(std::string_view text, int flags = 0, std::string_view title = kMessageBoxTitle,
    std::string_view helpFile = "", int context = 0, std::string_view source = "");

// Asks for a line of text; nothing when the person cancels.
std::optional<std::string> InputBox(std::string_view prompt, std::string_view title = kMessageBoxTitle,
    std::string_view defaultValue = "");

// A warning with an OK button (flags 48) under the default title.
int WarningDialog(std::string_view text);

}  // namespace scriv
