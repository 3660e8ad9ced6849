#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "screenshots/Screenshot.h"

namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;
class clsFrmRptHelpContextIds;
class clsHHK;
class CScrivantParameters;
class CXmlForm;
class IHostForm;
class PictureFileWriter;

// Turns the loaded contents tree into a help project on disk: one topic per
// node, then the project's derived files.
class CScrivant : public IFormPageMaker {
public:
    CScrivant();
    ~CScrivant() override;
    CScrivant(const CScrivant&) = delete;
    CScrivant& operator=(const CScrivant&) = delete;

    // A whole run as the wizard starts it.
    void Generate();
    // process: write the topics; backup: copy the folder aside first; save: write
    // the help file name into the source project; openHelp: open the result;
    // regenerating: only nodes flagged for it get new topics.
    std::uint32_t GenerateHelpProject(bool process, bool backup, bool save, bool openHelp, bool regenerating);

    // Loads the tree of the current project: its project file when it has one,
    // else the default contents document. With keep, a loaded tree stays.
    // A progress form that the person has closed stops the load.
    std::uint32_t LoadTreviewForActiveProject(bool keep, IHostForm* progressForm = nullptr);
    void UnLoadTreviewForActiveProject();

    // The description of a form as the generation saves it, with its page
    // (pageFullPath, or the default page of name) and pictures named.
    // With takeScreenshots the form's window and compound controls are
    // photographed while the host has it open.
    std::unique_ptr<CXmlForm> DescribeSourceObject(int type, const std::string& name, const std::string& pageFullPath,
        const std::string& sourceProjectName = {}, const std::string& sourceProjectType = {},
        bool takeScreenshots = false);
    // The normalised description of one component: the host's description,
    // adjusted, with its controls in tab order. Nothing when the host has none.
    std::unique_ptr<CXmlForm> CreateNormalizedXmlDef(int objectType, const std::string& name, int hwnd,
        bool designView, const std::string& picFullPath, const std::string& htmlFullPath, bool noScreenshots,
        const std::string& hostProjectType, bool keepOpen) override;
    // Writes the topic of a form beside its picture.
    void SaveFormPage(CXmlForm& form, const std::string& htmlFullPath) override;
    // The description of one component as the host gives it (the command
    // ProcessComponent), or "".
    std::string CreateXmlDefForComponent(int objectType, const std::string& name, int hwnd, bool designView,
        const std::string& picFullPath, const std::string& htmlFullPath, bool noScreenshots,
        const std::string& hostProjectType, bool keepOpen);

    CScrivantParameters& Parameters();
    CHelpPrjTree& HelpProjectTree();
    bool HasHelpProjectTree() const { return m_tree != nullptr; }
    void Terminate();

    // --- steps of a run, used by recompile and regeneration ---
    std::uint32_t GenerateHTMLForProject(bool process, bool regenerating);
    std::uint32_t ProcessHelpTreeAndGenerateHelp(bool regenerating);
    // Walks the children of parent; answers true when the person cancelled.
    bool ProcessHelpTreeAndGenerateHelp1(int level, CHelpPrjTreeNode& parent, int total, int& counter,
        bool regenerating);
    void ProcessHelpTreeAndGenerateHelp2(CHelpPrjTreeNode& root, bool regenerating);
    std::uint32_t SaveHelpProjectFiles();
    // The help compiler's project file (path, or the project's own) and the
    // text popups file beside it. 0 on success.
    std::uint32_t WriteHHPFile(const std::string& path);
    void WriteTextPopupsFile();
    // The text of the project file.
    std::string HHPText();

    // The index of the run and the help context ids of the project.
    clsHHK& HelpIndex() { return *m_helpIndex; }
    clsFrmRptHelpContextIds& HelpContextIds() { return *m_helpContextIds; }

private:
    void ProcessNode(CHelpPrjTreeNode& child, int level, int total, int counter, bool regenerating);
    void ProcessSourceObject(CHelpPrjTreeNode& node);
    void WriteObjectPage(CXmlForm& form, int type, const std::string& page);
    void SetPageTitle(CXmlForm& form, const std::string& page);
    void ReportFailedPictures(const std::vector<std::string>& paths);
    void WritePlainTopic(CHelpPrjTreeNode& node, const std::vector<std::string>& replacements);
    void NameListPage(CHelpPrjTreeNode& node);
    void WriteListPage(CHelpPrjTreeNode& node);
    void CopyStyleSheet();
    void ShowStep(const std::string& text);
    void HideStep();
    void BackupProjectFolder(const std::string& folder);

    std::unique_ptr<CHelpPrjTree> m_tree;
    std::unique_ptr<clsHHK> m_helpIndex;
    std::unique_ptr<clsFrmRptHelpContextIds> m_helpContextIds;
    // While the walk runs.
    std::unique_ptr<PictureFileWriter> m_pictureWriter;
    std::chrono::steady_clock::time_point m_objectTimer;
    bool m_terminated { false };
};

}  // namespace scriv
