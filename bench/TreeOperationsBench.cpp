// How long the Help Editor's tree operations take on a contents tree of 1,000
// topics: a move up and back, a copy pasted and undone, with and without an
// open help project whose 1,000 pages lie on disk.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "editor/clsTreeViewManipulator.h"
#include "foundation/AppFolders.h"
#include "foundation/Paths.h"
#include "foundation/ScriptedUserInterface.h"
#include "model/CScrivantParameters.h"
#include "host/CFakeHostContext.h"
#include "model/CAddInProjects.h"
#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "server/CScrivClient.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"

namespace {

using namespace scriv;

constexpr int kGroups = 20;
constexpr int kTopicsPerGroup = 49;

// 20 groups of 49 topics: 1,000 nodes below the root.
std::string ThousandTopics()
{
    std::string xml = "<Project Key=\"P\" Caption=\"Help\" GeneratedHtmlFile=\"Welcome.htm\">";
    for (int g = 0; g < kGroups; ++g) {
        std::string group = "G" + std::to_string(g);
        xml += "<Topic Key=\"" + group + "\" Caption=\"Group " + std::to_string(g) + "\" GeneratedHtmlFile=\"" + group
            + ".htm\">";
        for (int t = 0; t < kTopicsPerGroup; ++t) {
            std::string key = group + "_" + std::to_string(t);
            xml += "<Topic Key=\"" + key + "\" Caption=\"Topic " + key + "\" GeneratedHtmlFile=\"" + key + ".htm\"/>";
        }
        xml += "</Topic>";
    }
    return xml + "</Project>";
}

std::string Folder(const std::string& name)
{
    std::string path = (std::filesystem::temp_directory_path() / name).string() + "/";
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
    return path;
}

class Bench {
public:
    explicit Bench(bool withProject)
        : m_pages(Folder("scrivant-tree-bench-pages"))
    {
        SetUserInterface(std::make_unique<ScriptedUserInterface>());
        if (withProject)
            OpenProject();
        m_tree.HTMLHelpProjectRootDir = m_pages;
        m_tree.Load("", false, ThousandTopics());
        m_tree.DisplayInTreeview(&m_view);
        TreeOperationContext context;
        context.projectFolder = m_pages;
        m_manipulator.init(&m_view, &m_tree, context);
    }
    ~Bench()
    {
        m_manipulator.Terminate();
        if (m_client)
            m_client->Disconnect();
        std::filesystem::remove_all(m_pages);
    }

    void Select(const std::string& key) { m_view.Select(key); }
    clsTreeViewManipulator& Manipulator() { return m_manipulator; }

private:
    // A current help project in the pages folder, one 4 kB page per topic.
    void OpenProject()
    {
        std::string data = Folder("scrivant-tree-bench-data");
        ConfigureFolders({ {}, data });
        m_client = std::make_unique<CScrivClient>();
        m_client->Connect(CFakeHostContext::FromXml("<Host/>"));
        CScrivServerData& serverData = CurrentServer()->Data();
        serverData.LoadSettings(false);
        auto project = std::make_unique<CAddInProject>();
        project->Name = "Bench";
        project->Folder = m_pages;
        serverData.Projects().SetCurrentProject(serverData.Projects().Add(std::move(project)));
        Parameters().SetHelpProjectName("Bench");
        std::string body(4000, 'x');
        for (int g = 0; g < kGroups; ++g)
            for (int t = 0; t < kTopicsPerGroup; ++t)
                WriteFileBytes(m_pages + "G" + std::to_string(g) + "_" + std::to_string(t) + ".htm", body);
    }

    std::string m_pages;
    std::unique_ptr<CScrivClient> m_client;
    CHelpPrjTree m_tree;
    CHeadlessTreeView m_view;
    clsTreeViewManipulator m_manipulator;
};

void BM_MoveUpAndDown(benchmark::State& state)
{
    Bench bench(state.range(0) != 0);
    bench.Select("G10_25");
    for (auto _ : state) {
        bench.Manipulator().Up();
        bench.Manipulator().Down();
    }
}
BENCHMARK(BM_MoveUpAndDown)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// A group of 49 topics copied, pasted under another group and undone.
void BM_PasteGroupAndUndo(benchmark::State& state)
{
    Bench bench(state.range(0) != 0);
    bench.Select("G3");
    bench.Manipulator().Copy();
    for (auto _ : state) {
        bench.Select("G12");
        bench.Manipulator().Paste();
        bench.Manipulator().Undo();
    }
}
BENCHMARK(BM_PasteGroupAndUndo)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
