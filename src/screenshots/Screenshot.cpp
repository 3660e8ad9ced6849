#include "screenshots/Screenshot.h"

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/CScrivantParameters.h"
#include "screenshots/CFormBitmapCapture.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

std::string PictureFormat()
{
    return Parameters().ImagesFormat() == 1 ? "bmp" : "jpg";
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
    if (CaptureForm(picture, PictureFormat(), form.Caption(), form.Width, form.Height, form.hWnd))
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
            if (CScrivServer* server = CurrentServer())
                server->Agent().ActivateControl(PageName(form, control), false, false);
        std::string picture = InFolder(control.PicFullPath, targetFolder);
        if (CaptureControl(picture, PictureFormat(), hwnd, control.Left, control.Top, control.Width, control.Height))
            ++m_taken;
        control.PicFullPath = picture;
    }
    for (auto& child : control.Controls())
        TakeCompoundControlScreenshot(form, *child.value, hwnd, targetFolder);
}

}  // namespace scriv
