#include "model/OpenHelpProject.h"

#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjSelector.h"
#include "model/IRunContext.h"

namespace scriv {

std::vector<std::string> OpenHelpProjectChoices()
{
    CHelpPrjSelector selector;
    selector.init();
    std::vector<std::string> choices = selector.ExistingProjects();
    selector.Terminate();
    choices.emplace_back(kMoreFilesChoice);
    return choices;
}

std::optional<std::string> ChooseHelpProjectFile(const std::string& startFolder)
{
    FileChoiceRequest request;
    request.title = "Open Help Project";
    request.filterName = "Scrivant Project (SVP)";
    request.pattern = "*.svp";
    request.startFolder = startFolder;
    return UserInterface().ChooseFile(request);
}

int GetQtyOfReadOnlyFiles(const std::string& folder)
{
    int count = 0;
    for (const std::string& name : ListFiles(folder))
        if (IsReadOnly(AddBackslash(folder) + name))
            ++count;
    return count;
}

int ReadOnlyFilesOfProject(const CAddInProject& project)
{
    for (const std::string& folder : { project.Folder, project.XmlFormsFolder(), project.PicsSubfolderPath() }) {
        if (int count = GetQtyOfReadOnlyFiles(folder); count > 0)
            return count;
    }
    return 0;
}

std::string ReadOnlyFilesQuestion()
{
    return "Some of the files of selected Scrivant project " + std::string(kCrLf)
        + "are read-only. Editing and saving of these files could result in errors." + std::string(kCrLf)
        + "As a result of these errors you can loose your edits." + std::string(kCrLf)
        + "Would you like to continue opening selected Scrivant project anyway ?";
}

std::uint32_t OpenHelpProjectChoice(const std::string& choice, bool regenerate)
{
    std::string path = choice;
    if (choice == kMoreFilesChoice) {
        std::optional<std::string> chosen = ChooseHelpProjectFile();
        if (!chosen || chosen->empty())
            return status::kAbandoned;
        path = *chosen;
    }

    CHelpPrjSelector selector;
    selector.init();
    std::uint32_t result = selector.SetCurrent(path, regenerate);
    selector.Terminate();
    if (result != status::kOk)
        return result;

    CAddInProject* project = CurrentAddInProject();
    if (project && ReadOnlyFilesOfProject(*project) > 0) {
        int answer = MsgBox(ReadOnlyFilesQuestion(), msgbox::kYesNo + msgbox::kQuestion, kMessageBoxTitle, "", 0,
            "frmOpenHelpProject.cmdOK_Click");
        if (answer != vbYes)
            return status::kAbandoned;
    }
    return status::kOk;
}

}  // namespace scriv
