#include "foundation/AppFolders.h"

#include <cstdlib>
#include <memory>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

std::string DefaultInstallFolder()
{
    std::string program = ProgramFolder();
    std::string shared = ParentFolder(program) + "share/scrivant/";
    if (FolderExists(shared))
        return shared;
    return program;
}

std::string DefaultDataFolder()
{
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return AddBackslash(xdg) + "scrivant/";
    if (const char* home = std::getenv("HOME"); home && *home)
        return AddBackslash(home) + ".local/share/scrivant/";
    return TempFolder() + "scrivant/";
}

std::unique_ptr<AppFolders>& Instance()
{
    static std::unique_ptr<AppFolders> folders;
    return folders;
}

}  // namespace

AppFolders::AppFolders(const AppFolderOptions& options)
    : m_install(AddBackslash(options.home.empty() ? DefaultInstallFolder() : options.home))
    , m_data(AddBackslash(options.data.empty() ? DefaultDataFolder() : options.data))
{
}

std::string AppFolders::GetRedirectedValue(std::string_view fileName) const
{
    auto text = ReadFileText(m_install + "Redirect/" + std::string(fileName));
    if (!text || text->empty())
        return {};
    auto lines = SplitLines(*text);
    if (lines.empty())
        return {};
    std::string value = TrimWhitespace(lines.front());
    return value.empty() ? std::string() : AddBackslash(value);
}

std::string AppFolders::TemplatesRoot() const
{
    std::string redirected = GetRedirectedValue("Templates.rdt");
    return redirected.empty() ? m_install + "Templates/" : redirected;
}

std::string AppFolders::InstalledSettingsFolder() const
{
    return m_install + "Settings/";
}

std::string AppFolders::SettingsFolder() const
{
    std::string redirected = GetRedirectedValue("Settings.rdt");
    if (!redirected.empty())
        return redirected;
    std::string folder = m_data + "Settings/";
    if (!FolderExists(folder) && !MakeFolders(folder))
        return folder;
    // Files that a newer installation ships are added; the user's own stay.
    for (const std::string& name : ListFiles(InstalledSettingsFolder(), "*")) {
        if (!FileExists(folder + name))
            CopyFileOver(InstalledSettingsFolder() + name, folder + name);
    }
    return folder;
}

std::string AppFolders::LogFolder() const
{
    std::string redirected = GetRedirectedValue("Log.rdt");
    return redirected.empty() ? m_data : redirected;
}

const AppFolders& Folders()
{
    auto& folders = Instance();
    if (!folders)
        folders = std::make_unique<AppFolders>();
    return *folders;
}

void ConfigureFolders(const AppFolderOptions& options)
{
    Instance() = std::make_unique<AppFolders>(options);
}

}  // namespace scriv
