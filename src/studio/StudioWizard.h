#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

namespace scriv {
class CHelpWizardForm;
class CScrivServer;
}  // namespace scriv

namespace scriv::studio {

// The wizard of a new help project as the page shows it: the current page
// with its controls, its preview and (on the contents page) the tree, the
// person's changes, Next and Back, and the closing with Finish or Cancel.
// It keeps nothing of the wizard between calls, since the server may end or
// replace the wizard at any time (a reload for the project group does). Lives
// on the logic thread.
class StudioWizard {
public:
    // server answers the current server, or nothing.
    explicit StudioWizard(std::function<CScrivServer*()> server);

    // Whether a wizard is open and shown.
    bool Open() const;

    // The current page: {"open": false} without a shown wizard; else the
    // page's name, title and description, its step of the count, whether
    // Back and Next can be pressed, its controls (name, kind, caption, value,
    // enabled, visible, items), the preview beside it (kind and path), a
    // problem with the last change, and on the contents page the tree
    // ("contents": items, selected key, menu).
    nlohmann::json Page();

    // A change made in the page, answered with the page as it is then:
    //   {"action": "set", "control", "value"}  a control's new value
    //   {"action": "next"} / {"action": "back"}
    //   {"action": "select", "key"}             a node of the contents tree
    //   {"action": "menu", "item"}              an item of the tree's menu
    // A request that does not fit (no wizard, an unknown action or control,
    // a disabled item) answers nothing and leaves everything as it was; why
    // stands in problem.
    std::optional<nlohmann::json> Act(const nlohmann::json& request, std::string& problem);

    // --- what runs as commands (they may show dialogs and generate) ---
    // Presses a button of the current page (a folder or file dialog).
    std::uint32_t Click(const std::string& controlName);
    // Finish: the checks, the settings and the generation follow. 0 when the
    // help was generated; a refused check leaves the wizard open again.
    std::uint32_t Finish();
    // Cancel: the parameters as they were, and the wizard closed.
    std::uint32_t Cancel();

private:
    // The shown wizard, made ready for the page (its contents page gets the
    // tree operations), or nothing.
    CHelpWizardForm* Current() const;

    std::function<CScrivServer*()> m_server;
};

}  // namespace scriv::studio
