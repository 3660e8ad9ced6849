#include "cli/ProjectCommands.h"

#include <filesystem>
#include <iostream>

#include "cli/CliSession.h"
#include "desktop/CW_IDEVB6Context.h"
#include "foundation/ConsoleUserInterface.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/CScrivant.h"
#include "host/CFakeHostContext.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivActions.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv {

namespace {

// --- the wizard on a console ---

void AskControl(CHelpWizardForm& wizard, CHelpWizardFormPageControl& control)
{
    using Kind = CHelpWizardFormPageControl::Kind;
    std::string caption = RemoveAll(control.OptCaption.empty() ? control.ControlName : control.OptCaption, "&");
    switch (control.ControlKind()) {
    case Kind::CheckBox: {
        int flags = msgbox::kYesNo | msgbox::kQuestion | (control.Value == "1" ? 0 : msgbox::kDefaultButton2);
        int answer = UserInterface().MessageBox({ caption + "?", flags, wizard.CurrentPage()->Title, "wizard" });
        wizard.SetControlValue(control.ControlName, answer == vbYes ? "1" : "0");
        break;
    }
    case Kind::TextBox:
    case Kind::ComboBox: {
        std::optional<std::string> value = UserInterface().InputBox(caption, wizard.CurrentPage()->Title, control.Value);
        if (value)
            wizard.SetControlValue(control.ControlName, *value);
        break;
    }
    default:
        break;
    }
}

void AskOptionGroups(CHelpWizardForm& wizard, CHelpWizardFormPage& page)
{
    std::vector<std::string> asked;
    for (auto& control : page.Controls) {
        if (control->ControlKind() != CHelpWizardFormPageControl::Kind::OptionButton)
            continue;
        bool seen = false;
        for (const std::string& name : asked)
            seen = seen || EqualsNoCase(name, control->OptionName);
        if (seen)
            continue;
        asked.push_back(control->OptionName);
        std::vector<CHelpWizardFormPageControl*> group;
        std::vector<std::string> captions;
        std::size_t chosen = 0;
        for (auto& member : page.Controls) {
            if (member->ControlKind() == CHelpWizardFormPageControl::Kind::OptionButton
                && EqualsNoCase(member->OptionName, control->OptionName)) {
                if (member->Value == "1")
                    chosen = group.size();
                group.push_back(member.get());
                captions.push_back(RemoveAll(member->OptCaption, "&"));
            }
        }
        if (auto answer = UserInterface().ChooseFromList(page.Title, captions, chosen))
            wizard.SetControlValue(group[*answer]->ControlName, "1");
    }
}

// Shows the wizard page by page until the person finishes or cancels it.
void DriveWizard(CHelpWizardForm& wizard)
{
    while (wizard.Shown()) {
        CHelpWizardFormPage* page = wizard.CurrentPage();
        if (!page) {
            wizard.Cancel();
            return;
        }
        std::cerr << "\n== Step " << wizard.StepNumber() << " of " << wizard.Pages().size() << ": " << page->Title << " ==\n"
                  << page->Description << "\n";
        for (auto& control : page->Controls) {
            if (control->ControlKind() == CHelpWizardFormPageControl::Kind::Label)
                std::cerr << control->Value << "\n";
            else
                AskControl(wizard, *control);
        }
        AskOptionGroups(wizard, *page);
        std::vector<std::string> moves;
        if (wizard.ForwardEnabled())
            moves.push_back("Next");
        if (wizard.BackEnabled())
            moves.push_back("Back");
        moves.push_back("Finish");
        moves.push_back("Cancel");
        // Unanswered, the wizard goes forward and finishes on its last page.
        std::optional<std::size_t> move = UserInterface().ChooseFromList("Go on", moves, moves.front() == "Next" ? 0 : moves.size() - 2);
        std::string chosen = move ? moves[*move] : "Cancel";
        if (chosen == "Next")
            wizard.NextPage();
        else if (chosen == "Back")
            wizard.PreviousPage();
        else if (chosen == "Finish")
            return wizard.Finish();
        else
            return wizard.Cancel();
    }
}

}  // namespace

int RunProjects(const GlobalOptions& global)
{
    return WithSession(global, {}, [](CScrivServer& server) {
        std::vector<CAddInProject*> projects = server.Data().Projects().Projects();
        if (projects.empty()) {
            std::cout << "No help projects are registered.\n";
            return exitcode::kDone;
        }
        for (CAddInProject* project : projects) {
            std::string file = project->SVPFullPath();
            std::cout << project->Name << (FileExists(file) ? "" : "  (file missing)") << "\n"
                      << "    project file: " << file << "\n"
                      << "    documents:    " << project->SourceProjectFullPath << "\n";
        }
        return exitcode::kDone;
    });
}

int RunOpen(const GlobalOptions& global, const std::string& projectFile, const std::string& hostFile)
{
    return WithSession(global, hostFile, [&](CScrivServer& server) {
        std::string path = projectFile;
        if (!IsAbsolutePath(path))
            path = JoinPath(std::filesystem::current_path().string(), path);
        std::uint32_t status = server.ReloadScrivProject(path, 1);
        if (status != 0)
            return ExitCodeOf(status);
        CScrivant& scriv = server.Data().ScrivEngine();
        status = scriv.LoadTreviewForActiveProject(true);
        if (status != 0)
            return ExitCodeOf(status);
        CHeadlessTreeView view;
        scriv.HelpProjectTree().DisplayInTreeview(&view);
        CAddInProject* project = server.Data().Projects().CurrentProject();
        std::cout << "Help project " << (project ? project->Name : "") << " (" << path << ")\n\n" << view.Render();
        // The tree lets go of the view before the view goes.
        scriv.UnLoadTreviewForActiveProject();
        return exitcode::kDone;
    });
}

int RunSettings(const GlobalOptions& global, const std::string& get, const std::string& set)
{
    return WithSession(global, {}, [&](CScrivServer& server) {
        CScrivServerData& data = server.Data();
        CAddInSettingsXmlFile& settings = data.GetSettings();
        const std::vector<std::string>& known = CAddInSettings::KnownOptions();
        auto isKnown = [&](const std::string& name) {
            for (const std::string& option : known)
                if (EqualsNoCase(option, name))
                    return true;
            return false;
        };
        if (!get.empty()) {
            if (!isKnown(get)) {
                std::cerr << "scrivant: there is no option '" << get << "'.\n";
                return exitcode::kUsage;
            }
            std::cout << settings.OptionText(get) << "\n";
            return exitcode::kDone;
        }
        if (!set.empty()) {
            std::size_t equals = set.find('=');
            std::string name = Trim(set.substr(0, equals));
            if (equals == std::string::npos || !isKnown(name)) {
                std::cerr << "scrivant: --set takes NAME=VALUE with a known option name, not '" << set << "'.\n";
                return exitcode::kUsage;
            }
            settings.SetOptionText(name, set.substr(equals + 1));
            // The file is written from the parameters, so they take the new value first.
            CAddInSettings(Parameters()).Load(settings, true);
            std::uint32_t failure = ErrorFrame("scrivant settings", [&] { settings.Save(data.SettingsFilePath()); });
            if (failure != 0)
                return exitcode::kFailed;
            std::cout << name << " = " << settings.OptionText(name) << "\n";
            return exitcode::kDone;
        }
        std::cout << "# " << data.SettingsFilePath() << "\n";
        for (const CXMLOption& option : settings.Options())
            std::cout << option.Name << " = " << option.Value << "\n";
        return exitcode::kDone;
    });
}

int RunNew(const GlobalOptions& global, const std::string& hostFile)
{
    return WithSession(global, hostFile, [&](CScrivServer& server) {
        // Without a person at a terminal the wizard takes the settings as they are.
        ConsoleOptions console = DetectConsoleOptions(global.assumeYes);
        server.Data().Unattended = global.assumeYes || !console.interactive;
        std::uint32_t status = server.OpenNewProject();
        if (CHelpWizardForm* wizard = server.Actions().Wizard(); wizard && wizard->Shown()) {
            DriveWizard(*wizard);
            status = 0;
        }
        // The statistics were shown in the closing message.
        const std::string& statistics = server.Actions().LastStatistics();
        if (status != 0)
            return ExitCodeOf(status);
        return statistics.empty() ? exitcode::kCancelled : (ErrorCounter() == 0 ? exitcode::kDone : exitcode::kFailed);
    });
}

}  // namespace scriv
