#include "cli/DescribeCommand.h"

#include <algorithm>
#include <iostream>

#include "cli/CliSession.h"
#include "desktop/CW_IDEVB6Context.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/CScrivant.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

struct DescribeCounts {
    int described { 0 };
    int failed { 0 };
};

bool IsWanted(const std::vector<std::string>& wanted, const std::string& name)
{
    return wanted.empty()
        || std::any_of(wanted.begin(), wanted.end(), [&](const std::string& w) { return EqualsNoCase(w, name); });
}

void DescribeComponent(CScrivant& scriv, const CW_IDEVB6Context::Component& component, DescribeCounts& counts)
{
    if (!component.file) {
        std::cerr << "scrivant: " << component.error << "\n";
        ++counts.failed;
        return;
    }
    try {
        std::unique_ptr<CXmlForm> form = scriv.DescribeSourceObject(objtype::kForm, component.name, {});
        std::cout << form->XMLSTr();
        ++counts.described;
    } catch (const ScrivError& error) {
        std::cerr << "scrivant: " << component.path << ": " << error.Description() << "\n";
        ++counts.failed;
    }
}

void DescribeProject(CScrivant& scriv, CW_IDEVB6Context& host, const DescribeOptions& options,
    std::vector<std::string>& unseen, DescribeCounts& counts)
{
    for (const CW_IDEVB6Context::Component& component : host.Components()) {
        if (!IsWanted(options.forms, component.name))
            continue;
        std::erase_if(unseen, [&](const std::string& name) { return EqualsNoCase(name, component.name); });
        DescribeComponent(scriv, component, counts);
    }
}

}  // namespace

int RunDescribe(const GlobalOptions& global, const DescribeOptions& options)
{
    CliSession session(global);
    std::unique_ptr<CW_IDEVB6Context> opened;
    try {
        opened = CW_IDEVB6Context::Open(options.source);
    } catch (const ScrivError& error) {
        std::cerr << "scrivant: " << error.Description() << "\n";
        return exitcode::kFailed;
    }
    CW_IDEVB6Context& host = *opened;
    for (const std::string& error : host.OpenErrors())
        std::cerr << "scrivant: " << error << "\n";
    session.Connect(std::move(opened));
    CScrivServerData& data = CurrentServer()->Data();
    data.LoadSettings(false);

    CScrivantParameters& parameters = Parameters();
    host.SetUseProjectGroupAsSource(true);
    std::vector<std::string> projects = Split(host.SourceProjectsList(), "|");
    host.SetCurrentSourceProject(projects.front());
    std::string out = options.out.empty() ? host.CurrentSourceProjectLocation() + "CHM" : options.out;
    parameters.SetFolderForGeneratedHelp(AddBackslash(out));
    if (parameters.Charset.empty())
        parameters.Charset = "utf-8";
    if (parameters.CSSFullPath().empty())
        parameters.SetCSSFullPath("Office10.css");

    CScrivant& scriv = data.ScrivEngine();
    std::vector<std::string> unseen = options.forms;
    DescribeCounts counts;
    for (const std::string& project : projects) {
        host.SetCurrentSourceProject(project);
        DescribeProject(scriv, host, options, unseen, counts);
    }
    for (const std::string& name : unseen)
        std::cerr << "scrivant: '" << options.source << "' has no form " << name << ".\n";
    if (counts.described == 0 && counts.failed == 0 && options.forms.empty())
        std::cerr << "scrivant: '" << options.source << "' has no forms.\n";
    // A form that cannot be read does not spoil the others; a form asked for
    // by name that is not there is a mistake in the command.
    if (!unseen.empty() || (counts.described == 0 && counts.failed > 0))
        return exitcode::kFailed;
    return exitcode::kDone;
}

}  // namespace scriv
