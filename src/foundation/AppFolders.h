#pragma once

#include <string>
#include <string_view>

namespace scriv {

// Where the program finds its data and keeps the user's files.
//
// The install folder holds Templates/, Settings/ and Redirect/ as shipped; it
// is "../share/scrivant" beside the program (the build tree has the same shape),
// or the folder given by --home. The user data folder holds the project
// registry, the trace log and a writable copy of Settings/; it is
// $XDG_DATA_HOME/scrivant (~/.local/share/scrivant), or the folder given by --data.
struct AppFolderOptions {
    std::string home; // empty: found from the program's location
    std::string data; // empty: from the environment
};

class AppFolders {
public:
    explicit AppFolders(const AppFolderOptions& options = {});

    // With a final separator.
    const std::string& InstallFolder() const { return m_install; }
    const std::string& UserDataFolder() const { return m_data; }

    // The first line of Redirect/<fileName> below the install folder, trimmed and
    // with a final separator; empty when the file is missing or empty.
    std::string GetRedirectedValue(std::string_view fileName) const;

    // Templates/ below the install folder, unless Templates.rdt moves it.
    std::string TemplatesRoot() const;
    // The folder of the settings files: Settings.rdt when given, otherwise
    // Settings/ in the user data folder, where every shipped file that is
    // missing is copied on use (the user's own files are kept).
    std::string SettingsFolder() const;
    // The shipped Settings/ folder of the installation.
    std::string InstalledSettingsFolder() const;
    // The folder of the trace log: Log.rdt when given, else the user data folder.
    std::string LogFolder() const;

private:
    std::string m_install;
    std::string m_data;
};

// The folders of this process. Configured once at start (the program's --home
// and --data); until then the defaults apply.
const AppFolders& Folders();
void ConfigureFolders(const AppFolderOptions& options);

}  // namespace scriv
