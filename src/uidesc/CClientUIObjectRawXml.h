#pragma once

#include <string>

namespace scriv {

class IClientFormProcessor;
class IHostObject;

// The host end of the form walk: one live form, report or data object, seen
// through a form processor, written as the raw description text. Positions are
// those the host reports, relative to each control's immediate container.
class CClientUIObjectRawXml {
public:
    // The raw description of a form (object type 2) or report (any other code
    // but the data objects 0, 1, 4, 81 and 82, which go to Get1_); "" when the
    // host has no such object.
    std::string Get_(IClientFormProcessor& processor, int objectType, IHostObject* component, int hostAppIdeHwnd,
        bool isInDesignView, const std::string& sourceProjectTypeName, bool keepSourceObjectOpened, bool trace);
    // The raw description of a table, query, macro, worksheet or chart: its fields.
    std::string Get1_(IClientFormProcessor& processor, int objectType, IHostObject* component,
        const std::string& componentName, const std::string& sourceProjectTypeName);

private:
    std::string WalkControl(IHostObject* control, int level);
    std::string WalkTabControl(IHostObject* control, int level, std::string& description);
    std::string WalkToolbar(IHostObject* control, int level);

    IClientFormProcessor* m_processor { nullptr };
    IHostObject* m_form { nullptr };
};

// One control element of the raw text.
struct RawControlElement {
    std::string type;
    std::string name;
    std::string caption;
    int left { 0 };
    int top { 0 };
    int width { 0 };
    int height { 0 };
    std::string tabPageTab;
    int tabIndex { -1 };
    int index { -1 };
    int helpContextId { 0 };
    std::string description;
    std::string sectionName;
    std::string parentControlName;
    std::string originalClassName;
    int level { 0 };
    int tabPageIndex { -1 };
    // Already written elements, joined.
    std::string children;

    std::string Write() const;
};

}  // namespace scriv
