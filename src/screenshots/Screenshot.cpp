#include "screenshots/Screenshot.h"

#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/FileBackups.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "screenshots/CFormBitmapCapture.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

IFormPageMaker*& CurrentFormPageMakerSlot()
{
    static IFormPageMaker* maker = nullptr;
    return maker;
}

std::string PictureFormat()
{
    return Parameters().ImagesType();
}

std::string InFolder(const std::string& path, const std::string& folder)
{
    return path.empty() || folder.empty() ? path : AddBackslash(folder) + FileNameOf(path);
}

bool IsPage(const CXmlControl& control)
{
    return EqualsNoCase(control.ClassName, "Page");
}

// Only a control that holds others gets a picture of its own: its image map
// lies on it.
bool IsCompound(const CXmlControl& control)
{
    return EqualsNoCase(control.ClassName, "TabControl") || IsPage(control) || EqualsNoCase(control.ClassName, "Frame")
        || EqualsNoCase(control.ClassName, "OptionGroup") || !control.Controls().Empty();
}

// Access frames and tabs are captured from a little higher up.
int AccessTopInset(const CXmlControl& control)
{
    if (EqualsNoCase(control.ClassName, "Frame") || EqualsNoCase(control.ClassName, "OptionGroup"))
        return 8;
    if (EqualsNoCase(control.ClassName, "TabControl") || IsPage(control) || EqualsNoCase(control.ClassName, "SSTab"))
        return 2;
    return 0;
}

}  // namespace

IFormPageMaker* CurrentFormPageMaker()
{
    return CurrentFormPageMakerSlot();
}

void SetCurrentFormPageMaker(IFormPageMaker* maker)
{
    CurrentFormPageMakerSlot() = maker;
}

std::string Screenshot::PageName(const CXmlForm& form, const CXmlControl& control)
{
    std::string own = control.Name;
    if (IsPage(control) && control.TabPageIndex > -1)
        own += ".[" + std::to_string(control.TabPageIndex) + "]";
    CXmlControl* parent = control.ParentControl();
    std::string prefix = parent ? PageName(form, *parent) : form.Type_() + "." + form.Name;
    return prefix + "." + own;
}

void Screenshot::LocateObjectsAndTakeScreenshots(const std::string& formXml, const std::string& targetFolder)
{
    CXmlForm form;
    if (!form.LoadXml(formXml))
        Raise(status::kGeneralFailure, "Screenshot.LocateObjectsAndTakeScreenshots", "Error parsing XML form string");
    LocateObjectsAndTakeScreenshots(form, targetFolder);
}

void Screenshot::LocateObjectsAndTakeScreenshots(CXmlForm& form, const std::string& targetFolder)
{
    m_taken = 0;
    if (!EqualsNoCase(form.Type_(), "Form") && !EqualsNoCase(form.Type_(), "Report"))
        return;
    std::string picture = InFolder(form.PicFullPath(), targetFolder);
    form.SetPicFullPath(picture);
    Trace("TakeFormAndCompoundControlsScreenshots: Form = [" + form.Name + "], picFullPath = " + picture);
    MakeFolders(FolderOf(picture));
    if (CaptureForm(picture, PictureFormat(), form.Caption(), form.Width, form.Height, form.hWnd, m_writer))
        ++m_taken;
    for (auto& entry : form.Controls())
        TakeCompoundControlScreenshot(form, *entry.value, form.hWnd, targetFolder);
}

void Screenshot::TakeCompoundControlScreenshot(CXmlForm& form, CXmlControl& control, int hwnd,
    const std::string& targetFolder)
{
    if (EqualsNoCase(form.SourceProjectType, "MS ACCESS")) {
        int inset = AccessTopInset(control);
        control.Top -= inset;
        control.Height += inset;
    }
    if (!control.PicFullPath.empty() && IsCompound(control)) {
        // A page is photographed while it is the one shown.
        if (IsPage(control))
            if (IHostAgent* agent = CurrentHostAgent())
                agent->ActivateControl(PageName(form, control), false, false);
        std::string picture = InFolder(control.PicFullPath, targetFolder);
        if (CaptureControl(picture, PictureFormat(), hwnd, control.Left, control.Top, control.Width, control.Height, m_writer))
            ++m_taken;
        control.PicFullPath = picture;
    }
    for (auto& child : control.Controls())
        TakeCompoundControlScreenshot(form, *child.value, hwnd, targetFolder);
}

// --- one form at a time ---

void Screenshot::ClearError()
{
    m_errNum = 0;
    m_errDescription.clear();
    m_errText.clear();
}

bool Screenshot::Fail(const std::string& description, std::uint32_t number)
{
    m_errNum = number;
    m_errDescription = description;
    m_errText = "Error " + FormatCode(number) + ": " + description;
    Trace("Screenshot: " + description);
    return false;
}

bool Screenshot::LoadProject(const std::string& svpFullPath)
{
    ClearError();
    if (!m_loadedPath.empty() && svpFullPath == m_loadedPath)
        return true;
    IRunContext* context = CurrentRunContext();
    if (!context)
        return Fail("Error loading project definitions of '" + svpFullPath + "', ErrCode = "
            + FormatCode(status::kGeneralFailure));
    std::uint32_t result = context->ReloadScrivProject(svpFullPath, -1);
    CAddInProject* project = context->Projects().CurrentProject();
    if (result != 0 || !project)
        return Fail("Error " + FormatCode(result == 0 ? status::kGeneralFailure : result), result);
    m_loadedPath = svpFullPath;
    m_snapshotFormat = context->GetSettings().OptionText("SnapshotFormat");
    m_htmlFolder = AddBackslash(project->Folder);
    m_picsFolder = project->PicsSubfolderPath();
    return true;
}

bool Screenshot::TakeVB6FormScreenshot(const std::string& formName, int picType, const std::string& targetFolder,
    const std::string& pictureFileName, const std::string& htmlFileName)
{
    ClearError();
    return TakeNamedForm(formName, picType, targetFolder, pictureFileName, htmlFileName, false);
}

bool Screenshot::TakeWinFormScreenshot(int hwnd, int picType, const std::string& targetFolder,
    const std::string& pictureFileName, const std::string& htmlFileName)
{
    ClearError();
    IHostAgent* agent = CurrentHostAgent();
    std::string formName = agent ? agent->GetWinFormNameByHWND(hwnd) : std::string();
    if (formName.empty())
        return Fail("Form not found for HWND = " + std::to_string(hwnd) + " and project '" + m_loadedPath + "'");
    return TakeNamedForm(formName, picType, targetFolder, pictureFileName, htmlFileName, true);
}

bool Screenshot::TakeNamedForm(const std::string& formName, int picType, const std::string& targetFolder,
    const std::string& pictureFileName, const std::string& htmlFileName, bool isVSNet)
{
    std::string picture;
    std::string page;
    if (picType == -1) {
        if (m_loadedPath.empty())
            return Fail("Source Scriv project isn't loaded.");
        IRunContext* context = CurrentRunContext();
        CHelpPrjTree* tree = context ? context->LoadedTree() : nullptr;
        CHelpPrjTreeNode* node = tree ? tree->Root() : nullptr;
        node = node ? node->GetUIObjectXMLNode(objtype::kForm, formName) : nullptr;
        std::unique_ptr<CXmlForm> saved = node ? LoadXmlForm(*node) : nullptr;
        if (!saved)
            return Fail("Form [" + formName + "] not found in generated project '" + m_loadedPath + "'");
        // A project of PNG pictures gets them; callers choose only bitmap or JPEG.
        picType = EqualsNoCase(m_snapshotFormat, "Bitmap") ? 1 : (EqualsNoCase(m_snapshotFormat, "Png") ? 3 : 2);
        picture = saved->PicFullPath();
        page = saved->HtmlFullPath();
    } else {
        if (picType != 1 && picType != 2)
            return Fail("Pictype can be only equal to 1(Bitmap) or 2(Jpeg)");
        if (targetFolder.empty())
            return Fail("TargetFolder isn't specified");
        if (pictureFileName.empty())
            return Fail("Picture file name isn't specified");
        picture = AddBackslash(targetFolder) + ReplaceAll(pictureFileName, "{{FormName}}", formName);
        if (!htmlFileName.empty())
            page = AddBackslash(targetFolder) + ReplaceAll(htmlFileName, "{{FormName}}", formName);
    }
    return Take(formName, picType, picture, page, isVSNet);
}

bool Screenshot::TakeWindowScreenshot(int hwnd, int picType, const std::string& targetFolder,
    const std::string& pictureFileName)
{
    ClearError();
    if (picType != 1 && picType != 2)
        return Fail("Pictype can be only equal to 1(Bitmap) or 2(Jpeg)");
    if (targetFolder.empty())
        return Fail("TargetFolder isn't specified");
    if (pictureFileName.empty())
        return Fail("Picture file name isn't specified");
    std::string path = AddBackslash(targetFolder) + pictureFileName;
    // The misspelling is the message as users know it.
    if (!CFormBitmapCapture().CaptureWindowScreenshot(hwnd, path, picType == 1 ? "bmp" : "jpg"))
        return Fail("Unexpected error whille taking window screenshot.");
    m_takenImage = path;
    return true;
}

bool Screenshot::Take(const std::string& formName, int picType, const std::string& pictureFullPath,
    const std::string& htmlFullPath, bool isVSNet)
{
    IHostAgent* host = CurrentHostAgent();
    IFormPageMaker* pages = CurrentFormPageMaker();
    if (!host || !pages)
        return Fail("Undefined object type and name Form(" + formName + ")");
    CScrivantParameters& parameters = Parameters();
    parameters.SetImagesFormat(picType == 1 || picType == 3 ? picType : 2);
    // The format decides the extension, whatever the name asked for.
    std::string picture = pictureFullPath;
    if (!picture.empty())
        picture = FolderOf(picture) + FileBaseName(picture) + parameters.ImagesFileExt();
    IHostAgent& agent = *host;
    if (!agent.ComponentExistsTest(objtype::kForm, formName))
        return Fail("Undefined object type and name Form(" + formName + ")");
    // A Visual Studio form is described in its project's own language, whose
    // rules place the controls of its tab pages.
    std::string hostType = isVSNet ? agent.CurrentSourceProjectTypeName() : std::string("VB6");
    std::unique_ptr<CXmlForm> form = pages->CreateNormalizedXmlDef(objtype::kForm, formName,
        agent.HostAppMainWindowHWnd(), !parameters.MakeNormalViewScreenshots, picture, htmlFullPath, false, hostType, true);
    if (!form)
        return Fail("Undefined object type and name Form(" + formName + ")");
    agent.ActivateComponent(objtype::kForm, formName, true, false);
    LocateObjectsAndTakeScreenshots(*form, FolderOf(picture));
    agent.CloseComponent(objtype::kForm, formName, false);
    m_takenImage = picture;
    if (htmlFullPath.empty())
        return true;
    if (form->StylesheetFullPath().empty())
        form->SetStylesheetFullPath(parameters.CSSFullPath());
    if (form->Charset.empty())
        form->Charset = parameters.Charset;
    if (FileExists(htmlFullPath) && !CopyFileOver(htmlFullPath, BackupFileName(htmlFullPath))) {
        Fail("Cannot backup active object's HTML file '" + htmlFullPath + "'.");
        return false;
    }
    Trace("TakeScreenshot: ObjType = Form, ObjName = " + formName + ", PicFullPath = " + picture
        + ", HtmlFullPath = " + htmlFullPath + ", IsVSNet = " + (isVSNet ? "True" : "False"));
    pages->SaveFormPage(*form, htmlFullPath);
    return true;
}

}  // namespace scriv
