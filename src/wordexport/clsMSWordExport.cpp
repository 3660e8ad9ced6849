#include "wordexport/clsMSWordExport.h"

#include <algorithm>
#include <optional>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "htmldom/HtmlDocument.h"
#include "model/CHelpPrjTreeNode.h"
#include "wordexport/HtmlToWordml.h"
#include "wordexport/OoxmlPackage.h"
#include "wordexport/WordDocument.h"

namespace scriv {

namespace {

constexpr const char* kTemplateName = "WordDocTemplate";

void CollectPages(const CHelpPrjTreeNode& node, const WordExportProject& project, clsMSWordExportFiles& files)
{
    if (node.Skipped() || node.IsControl || node.IsMenu)
        return;
    std::string page;
    if (node.IsRootNode || !node.ParentNode()) {
        std::string named = project.folder + project.name + ".htm";
        if (!project.name.empty() && FileExists(named))
            page = named;
        else if (!node.GeneratedHTMLFile().empty() && FileExists(project.folder + node.GeneratedHTMLFile()))
            page = project.folder + node.GeneratedHTMLFile();
    } else if (!node.GeneratedHTMLFile().empty()) {
        page = project.folder + node.GeneratedHTMLFile();
    }
    if (!page.empty())
        files.Add(page, std::max(node.Level(), 1));
    for (const auto& child : node.ChildNodes())
        CollectPages(*child, project, files);
}

}  // namespace

clsMSWordExport::clsMSWordExport(IUserInterface& ui)
    : m_ui(ui)
{
}

clsMSWordExportFiles clsMSWordExport::FillHtmlFileNames(const CHelpPrjTreeNode& root, const WordExportProject& project)
{
    clsMSWordExportFiles files;
    WordExportProject normalized = project;
    normalized.folder = AddBackslash(project.folder);
    CollectPages(root, normalized, files);
    return files;
}

std::string clsMSWordExport::DefaultTargetPath(const WordExportProject& project)
{
    return AddBackslash(project.folder) + project.name + " documentation.docx";
}

std::string clsMSWordExport::TemplateFullPath()
{
    std::string root = Folders().TemplatesRoot();
    std::string packaged = root + kTemplateName + ".dotx";
    if (FileExists(packaged))
        return packaged;
    std::string parts = root + kTemplateName + "/";
    return FolderExists(parts) ? parts : packaged;
}

OoxmlPackage clsMSWordExport::LoadTemplate(const std::string& templatePath)
{
    if (!templatePath.empty() && IsPathSeparator(templatePath.back()))
        return OoxmlPackage::FromFolder(templatePath);
    if (!FileExists(templatePath))
        Raise(status::kGeneralFailure, "clsMSWordExport.LoadTemplate",
            "The Word template '" + templatePath + "' does not exist.");
    return OoxmlPackage::Open(templatePath);
}

bool clsMSWordExport::Cancelled()
{
    return m_ui.CancelRequested();
}

std::uint32_t clsMSWordExport::Export(const CHelpPrjTreeNode& root, const WordExportProject& project,
    const std::string& target, bool replace, bool savePictures)
{
    m_imported = 0;
    if (FileExists(target) && !replace) {
        m_ui.MessageBox({ "MS Word document '" + target + "' already exists", msgbox::kExclamation, kMessageBoxTitle,
            "clsMSWordExport.Export" });
        return kTargetExists;
    }
    clsMSWordExportFiles files = FillHtmlFileNames(root, project);
    std::uint32_t status = 0;
    std::uint32_t failure = ErrorFrame("clsMSWordExport.Export", [&] {
        status = RunExport(files, project, target, savePictures);
    });
    // The copies go even when the export failed.
    files.DeleteRefactoredFiles();
    files.Terminate();
    m_ui.ProgressDispose();
    return failure != 0 ? failure : status;
}

std::uint32_t clsMSWordExport::RunExport(clsMSWordExportFiles& files, const WordExportProject& project,
    const std::string& target, bool savePictures)
{
    std::string templatePath = TemplateFullPath();
    Trace("clsMSWordExport.Export: Folder = " + project.folder);
    Trace("clsMSWordExport.Export: DocFullPath = " + target);
    Trace("clsMSWordExport.Export: TemplateFullPath = " + templatePath);
    WordDocument document(LoadTemplate(templatePath));
    if (!FolderOf(target).empty() && !MakeFolders(FolderOf(target)))
        Raise(status::kGeneralFailure, "clsMSWordExport.Export",
            "The folder of the document '" + target + "' cannot be created.");

    int count = static_cast<int>(files.Count());
    m_ui.ProgressInit("Exporting to MS Word...", std::max(count, 1));
    m_ui.ProgressUpdate("Refactoring HTML files...", 0);
    if (!files.Refactor([this](std::size_t) { return !Cancelled(); }))
        return kCancelled;

    document.SetTitle(project.title);
    int lowerHeadingLevel = 1;
    for (const auto& file : files.Files) {
        lowerHeadingLevel = std::max(lowerHeadingLevel, std::min(file->Level(), 9));
        // Each page's anchor is its own, whatever another page names its anchors.
        document.ReserveBookmarkName(WordBookmarkName(file->FileNameNoExt()), file->FileNameNoExt());
    }

    m_ui.ProgressUpdate("Importing pages...", 0);
    bool savedBefore = false;
    for (int number = 1; number <= count; ++number) {
        const clsMSWordExportFile& file = *files.Files[number - 1];
        std::string copy = file.RefactoredFullPath();
        Trace("clsMSWordExport.Export: CurrentImportFile = " + copy);
        if (Cancelled())
            return kCancelled;
        // A long export keeps what it has made so far.
        if (number % kSaveInterval == 1 && number > kSaveInterval) {
            document.FillTableOfContents(lowerHeadingLevel);
            document.Save(target);
            Trace(std::string("clsMSWordExport.Export: ") + (savedBefore ? "Save" : "SaveAs") + " before file "
                + std::to_string(number));
            savedBefore = true;
        }
        m_ui.ProgressUpdate("", number);
        if (FileNameOf(copy).empty())
            continue;
        if (Cancelled())
            return kCancelled;
        std::optional<std::string> text = ReadFileText(copy);
        if (!text) {
            Trace("clsMSWordExport.Export: left out, the page could not be read: '" + file.FullPath() + "'");
            continue;
        }
        std::unique_ptr<HtmlDocument> page = HtmlDocument::Parse(*text);
        HtmlToWordmlOptions options;
        options.pageFolder = FolderOf(file.FullPath());
        options.pageAnchor = file.FileNameNoExt();
        options.linkPictures = !savePictures;
        AppendHtmlBody(document, *page, options);
        ++m_imported;
    }

    m_ui.ProgressUpdate("Updating document...", count);
    document.FillTableOfContents(lowerHeadingLevel);
    document.Save(target);
    Trace(std::string("clsMSWordExport.Export: ") + (savedBefore ? "Save" : "SaveAs") + ", " + std::to_string(m_imported)
        + " pages");
    return 0;
}

std::uint32_t clsMSWordExport::ExportAndReport(const CHelpPrjTreeNode& root, const WordExportProject& project,
    const std::string& target, bool savePictures)
{
    if (FileExists(target)) {
        int answer = m_ui.MessageBox({ "MS Word document '" + target + "' already exists," + std::string(kCrLf)
                + "would you like to replace it with the new document?",
            msgbox::kYesNo | msgbox::kQuestion, kMessageBoxTitle, "frmMSWordExport.cmdOK" });
        if (answer != vbYes)
            return kCancelled;
        if (!DeleteFileIfExists(target)) {
            m_ui.MessageBox({ "MS Word document '" + target + "' cannot be replaced.", msgbox::kExclamation,
                kMessageBoxTitle, "frmMSWordExport.cmdOK" });
            return kTargetExists;
        }
    }
    std::uint32_t status = Export(root, project, target, true, savePictures);
    if (status == 0)
        m_ui.MessageBox({ "Export to MS Word finished OK.", msgbox::kInformation, kMessageBoxTitle,
            "frmMSWordExport.cmdOK" });
    return status;
}

}  // namespace scriv
