#include "studio/StudioWizard.h"

#include <chrono>
#include <memory>

#include "editor/CHelpPrjTreeMenu.h"
#include "foundation/EventLoop.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivActions.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "server/CTimer.h"
#include "wizard/CHelpWizardForm.h"
#include "wizard/WizardPages.h"
#include "wizard/ctlHelpProjectContents.h"

namespace scriv::studio {

namespace {

using json = nlohmann::json;

// How long a reload of the wizard (queued by the server) may take.
constexpr std::chrono::seconds kReloadTimeout { 10 };

// The tree operations of the Help Editor, offered on the wizard's contents page.
class WizardContentsMenu : public IWizardContentsMenu {
public:
    WizardContentsMenu(ITreeView& view, CHelpPrjTree& tree)
    {
        const CScrivantParameters& parameters = Parameters();
        TreeOperationContext context;
        context.projectFolder = parameters.FolderForGeneratedHelp();
        context.charset = parameters.Charset;
        context.cssFullPath = parameters.CSSFullPath();
        context.useControlNames = parameters.IdentifyControls() != 0;
        // The page shows the selected node's topic itself: no form hears the menu.
        m_menu.init(&view, &tree, std::move(context), nullptr);
    }

    bool Enabled(std::string_view item) const override
    {
        std::optional<TreeMenuItem> found = Find(item);
        return found && found->enabled;
    }
    bool Run(std::string_view item) override { return m_menu.MenuClick(item); }
    std::string Caption(std::string_view item) const override
    {
        std::optional<TreeMenuItem> found = Find(item);
        return found ? found->caption : std::string();
    }
    void Terminate() override { m_menu.Terminate(); }

private:
    std::optional<TreeMenuItem> Find(std::string_view item) const
    {
        for (TreeMenuItem& entry : m_menu.PopupMenu())
            if (entry.name == item)
                return entry;
        return std::nullopt;
    }

    CHelpPrjTreeMenu m_menu;
};

const char* KindName(CHelpWizardFormPageControl::Kind kind)
{
    using Kind = CHelpWizardFormPageControl::Kind;
    switch (kind) {
    case Kind::TextBox:
        return "text";
    case Kind::CheckBox:
        return "check";
    case Kind::OptionButton:
        return "option";
    case Kind::ComboBox:
        return "list";
    case Kind::Label:
        return "label";
    case Kind::CommandButton:
        return "button";
    case Kind::Other:
        break;
    }
    return "other";
}

json ControlJson(const CHelpWizardFormPageControl& control)
{
    json items = json::array();
    for (const auto& item : control.Items)
        items.push_back({ { "value", item.value }, { "text", item.text } });
    json out = {
        { "name", control.ControlName },
        { "kind", KindName(control.ControlKind()) },
        { "caption", control.Caption() },
        { "value", control.Value },
        { "enabled", control.Enabled },
        { "visible", control.Visible },
        { "items", items },
    };
    // Option buttons of one option are one group.
    if (control.ControlKind() == CHelpWizardFormPageControl::Kind::OptionButton)
        out["group"] = control.OptionName;
    return out;
}

json TreeItems(const ITreeView& view, const std::vector<std::string>& keys)
{
    json items = json::array();
    for (const std::string& key : keys) {
        items.push_back({
            { "key", key },
            { "text", view.Text(key) },
            { "image", view.Image(key) },
            { "expanded", view.Expanded(key) },
            { "children", TreeItems(view, view.ChildrenKeys(key)) },
        });
    }
    return items;
}

json ContentsJson(const ctlHelpProjectContents& page)
{
    const CHeadlessTreeView& view = page.TreeView();
    json menu = json::array();
    for (const auto& entry : page.PopupMenu())
        menu.push_back({ { "name", entry.name }, { "caption", entry.caption }, { "enabled", entry.enabled } });
    return {
        { "items", TreeItems(view, view.TopKeys()) },
        { "selected", view.SelectedKey() },
        { "menu", menu },
        { "canChange", page.CanChangeTree() },
    };
}

}  // namespace

StudioWizard::StudioWizard(std::function<CScrivServer*()> server)
    : m_server(std::move(server))
{
}

CHelpWizardForm* StudioWizard::Current() const
{
    CScrivServer* server = m_server ? m_server() : nullptr;
    if (!server || !server->Connected())
        return nullptr;
    CHelpWizardForm* wizard = server->Actions().Wizard();
    if (!wizard || !wizard->Shown() || !wizard->CurrentPage())
        return nullptr;
    // A wizard the server made since the last call gets the tree operations.
    if (!wizard->ContentsMenuFactory()) {
        wizard->SetContentsMenuFactory([](ITreeView& view, CHelpPrjTree& tree) -> std::unique_ptr<IWizardContentsMenu> {
            return std::make_unique<WizardContentsMenu>(view, tree);
        });
    }
    return wizard;
}

bool StudioWizard::Open() const
{
    return Current() != nullptr;
}

json StudioWizard::Page()
{
    CHelpWizardForm* wizard = Current();
    if (!wizard)
        return { { "open", false } };
    CHelpWizardFormPage& page = *wizard->CurrentPage();
    json controls = json::array();
    for (const auto& control : page.Controls)
        controls.push_back(ControlJson(*control));
    WizardPreview preview = wizard->CurrentPreview();
    const char* previewKind = preview.kind == WizardPreview::Kind::Page
        ? "page"
        : (preview.kind == WizardPreview::Kind::Picture ? "picture" : "none");
    json out = {
        { "open", true },
        { "page",
            { { "name", page.Name }, { "title", page.Title }, { "description", page.Description },
                { "helpContextId", page.HelpContextId } } },
        { "step", wizard->StepNumber() },
        { "count", wizard->PageCount() },
        { "back", wizard->BackEnabled() },
        { "next", wizard->ForwardEnabled() },
        { "controls", controls },
        { "preview", { { "kind", previewKind }, { "path", preview.path } } },
        { "problem", "" },
    };
    if (auto* project = dynamic_cast<ctlHelpProject*>(page.PageControl.get()))
        out["problem"] = project->NameProblem();
    if (auto* contents = dynamic_cast<ctlHelpProjectContents*>(page.PageControl.get()))
        out["contents"] = ContentsJson(*contents);
    return out;
}

std::optional<json> StudioWizard::Act(const json& request, std::string& problem)
{
    CHelpWizardForm* wizard = Current();
    if (!wizard) {
        problem = "No wizard is open.";
        return std::nullopt;
    }
    std::string action = request.is_object() ? request.value("action", "") : "";
    auto text = [&](const char* name) {
        return request.contains(name) && request[name].is_string() ? request[name].get<std::string>() : std::string();
    };
    if (action == "next" || action == "back") {
        wizard->ShowWizardPage(action == "next" ? 1 : -1);
        return Page();
    }
    if (action == "set") {
        std::string control = text("control");
        std::string value = request.contains("value") && request["value"].is_boolean()
            ? (request["value"].get<bool>() ? "1" : "0")
            : text("value");
        if (!wizard->SetControlValue(control, value)) {
            problem = "The page has no control '" + control + "' that can be changed.";
            return std::nullopt;
        }
        // A change of source reopens the wizard through the server's queue.
        CScrivServer* server = m_server();
        if (!wizard->Visible() && server && server->RequestQueue()) {
            CRequestQueue* queue = server->RequestQueue();
            LogicLoop().RunUntil([queue] { return !queue->HasPendingTimer(); }, kReloadTimeout);
        }
        return Page();
    }
    auto* contents = dynamic_cast<ctlHelpProjectContents*>(wizard->CurrentPage()->PageControl.get());
    if (action == "select" || action == "menu") {
        if (!contents) {
            problem = "The contents tree is not on this page.";
            return std::nullopt;
        }
        bool done = action == "select" ? contents->Select(text("key")) : contents->MenuClick(text("item"));
        if (!done) {
            problem = action == "select" ? "The tree has no node '" + text("key") + "'."
                                         : "'" + text("item") + "' cannot be done on the selected node.";
            return std::nullopt;
        }
        return Page();
    }
    problem = "There is no wizard action '" + action + "'.";
    return std::nullopt;
}

std::uint32_t StudioWizard::Click(const std::string& controlName)
{
    CHelpWizardForm* wizard = Current();
    if (!wizard || !wizard->ClickControl(controlName))
        return status::kAbandoned;
    return status::kOk;
}

std::uint32_t StudioWizard::Finish()
{
    CHelpWizardForm* wizard = Current();
    if (!wizard)
        return status::kAbandoned;
    CScrivServer& server = *m_server();
    wizard->Finish();
    // The checks may refuse: the wizard is shown again for another answer.
    if (Open())
        return status::kAbandoned;
    // A help that was generated is registered; a cancelled one is not.
    CAddInProject* project = server.Data().HasProjects() ? server.Data().Projects().CurrentProject() : nullptr;
    return project && !project->IsNew ? status::kOk : status::kAbandoned;
}

std::uint32_t StudioWizard::Cancel()
{
    CHelpWizardForm* wizard = Current();
    if (!wizard)
        return status::kAbandoned;
    wizard->Cancel();
    return status::kOk;
}

}  // namespace scriv::studio
