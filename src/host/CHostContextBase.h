#pragma once

#include <string>

#include "host/IHostIDEContext.h"
#include "model/IHostAgent.h"

namespace scriv {

class CXmlCommand;

// What every host shares: the command dispatch of ProcessCallBack and the
// nesting hourglass. A host supplies the operations and the description of a
// component.
class CHostContextBase : public IHostIDEContext, public IHostIDEContextCommands {
public:
    // ^IHostIDEContext
    std::string ProcessCallBack(const std::string& xml) override;

    // ^IHostIDEContextCommands
    void HourglassOn() override;
    void HourglassOff() override;
    void HourglassOffFinal() override;
    // The progress of a host's long work shows in the program's own window.
    void ProgressMeterInit(const std::string& message, int maxVal) override;
    void ProgressMeterRemove() override;
    void ProgressMeterToggle(bool) override { }
    void ProgressMeterUpdate(int currentValue) override;
    void myDoevents() override;
    // The prefixes of component names that the generated help uses; a host
    // whose objects are named otherwise gives its own.
    std::string FormNamePrefix() override { return "dlg_"; }
    std::string ReportNamePrefix() override { return "rpt_"; }
    std::string TableNamePrefix() override { return "tbl"; }
    std::string QueryNamePrefix() override { return "qry"; }
    std::string MacroNamePrefix() override { return "mcr"; }
    // Only a host that draws forms with scroll bars corrects their size.
    void CorrectInsideWidthAndHeight(int, const std::string&, bool) override { }
    void ResetInsideWidthAndHeight(int, const std::string&, bool) override { }

    // The nesting count of the hourglass; the pointer shows "wait" above 0.
    int HourglassCount() const { return m_hourglassCount; }
    bool HourglassShown() const { return m_hourglassShown; }

protected:
    // The normalised description of one component (the document a form walk
    // makes), or "" when it cannot be described.
    virtual std::string ProcessComponent(const ProcessComponentRequest& request) = 0;
    // The class name used in the failure sources of the dispatch.
    virtual std::string HostClassName() const = 0;
    // Commands that only some hosts answer; the base raises the unknown-command
    // failure. Answer true when the command was handled.
    virtual bool ProcessOtherCommand(CXmlCommand& command) { return false; }

private:
    void Dispatch(CXmlCommand& command);

    int m_hourglassCount { 0 };
    bool m_progressShown { false };
    bool m_hourglassShown { false };
};

}  // namespace scriv
