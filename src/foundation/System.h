#pragma once

#include <string>
#include <string_view>
#include <vector>

// Small services of the operating system.
namespace scriv {

// A new random (version 4) GUID, upper case, in braces: 38 characters such as
// "{3F2504E0-4F89-41D3-9A0C-0305E82C3301}".
std::string NewGuid();

// Runs a program with its arguments (argv[0] is looked up on PATH; no shell is
// involved) and waits for it. Answers its exit code, 128 + the signal number
// when a signal ended it, or -1 when it could not be started. With
// capturedOutput, what the program writes to its standard output and error is
// collected there; otherwise those stay the caller's. With workingFolder the
// program starts in that folder.
int ShellAndWait(const std::vector<std::string>& argv, std::string* capturedOutput = nullptr,
    const std::string& workingFolder = {});

// Opens a file or address with the desktop's handler (xdg-open) and does not
// wait for it. False when the handler cannot be started.
bool ShellOpen(std::string_view path);

// The login name of the user running the program, or "" when none is known.
std::string LoggedOnUserName();

// The full path of an executable file named name in a folder of PATH, or "".
// A name with a "/" is taken as a path and answered when it is executable.
std::string FindProgramOnPath(std::string_view name);

}  // namespace scriv
