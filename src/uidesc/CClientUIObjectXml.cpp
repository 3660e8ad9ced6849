#include "uidesc/CClientUIObjectXml.h"

#include <utility>
#include <vector>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/DateTime.h"
#include "foundation/ErrorMessage.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "host/CNonClientMetrics.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/CXmlSection.h"

namespace scriv {

namespace {

bool IsOneOf(const std::string& value, std::initializer_list<const char*> names)
{
    for (const char* name : names)
        if (EqualsNoCase(value, name))
            return true;
    return false;
}

// Walks the controls with a stack of container positions, so that every
// position becomes relative to the form's client area.
class FileControlAdjuster {
public:
    FileControlAdjuster(std::string pictureBase, std::string extension, bool keepPositions)
        : m_pictureBase(std::move(pictureBase))
        , m_extension(std::move(extension))
        , m_keepPositions(keepPositions)
    {
    }

    void Adjust(CXmlControl& control, int level)
    {
        control.PicFullPath = m_pictureBase + GetComponentFileName(control.Name) + "." + m_extension;
        bool moves = !IsOneOf(control.ClassName, { "ToolbarButton", "Page" });
        if (!m_keepPositions && !m_stack.empty() && level >= 2 && moves) {
            control.Left += m_stack.back().first;
            control.Top += m_stack.back().second;
        }
        // A button stands where its toolbar's container puts the toolbar.
        if (!m_keepPositions && EqualsNoCase(control.ClassName, "ToolbarButton") && m_stack.size() > 1) {
            control.Left += m_stack[m_stack.size() - 2].first;
            control.Top += m_stack[m_stack.size() - 2].second;
        }
        if (IsOneOf(control.ClassName,
                { "Toolbar", "Subform", "Subreport", "GroupBox", "Frame", "OptionGroup", "PictureBox", "Panel",
                    "DataGridView" })) {
            m_stack.emplace_back(control.Left, control.Top);
            for (auto& child : control.Controls())
                Adjust(*child.value, level + 1);
            m_stack.pop_back();
        } else if (EqualsNoCase(control.ClassName, "TabControl")) {
            AdjustTabControl(control, level);
        }
    }

private:
    void AdjustTabControl(CXmlControl& tabControl, int level)
    {
        m_stack.emplace_back(tabControl.Left, tabControl.Top);
        int count = 0;
        for (auto& entry : tabControl.Controls()) {
            CXmlControl& page = *entry.value;
            if (!EqualsNoCase(page.ClassName, "Page"))
                continue;
            page.PicFullPath = m_pictureBase + GetComponentFileName(tabControl.Name) + std::to_string(count++) + "."
                + m_extension;
            if (!m_keepPositions) {
                page.Left = tabControl.Left;
                page.Top = tabControl.Top;
                if (page.OriginalClassName.empty() || EqualsNoCase(page.OriginalClassName, "SSTab")) {
                    page.Width = tabControl.Width;
                    page.Height = tabControl.Height;
                }
                // The tab lies where the tab control's container puts it.
                if (m_stack.size() > 1) {
                    page.TabLeft += m_stack[m_stack.size() - 2].first;
                    page.TabTop += m_stack[m_stack.size() - 2].second;
                }
            }
            for (auto& child : page.Controls())
                Adjust(*child.value, level + 2);
        }
        m_stack.pop_back();
    }

    std::string m_pictureBase;
    std::string m_extension;
    bool m_keepPositions;
    std::vector<std::pair<int, int>> m_stack;
};

// Windows Forms pages stand inside their tab control: a page takes the tab
// control's place, and its controls move by where the page stood.
void RecalcVSNetPageControlsAttributes(CXmlControl& control)
{
    for (auto& entry : control.Controls()) {
        CXmlControl& child = *entry.value;
        if (!EqualsNoCase(child.ClassName, "Page")) {
            RecalcVSNetPageControlsAttributes(child);
            continue;
        }
        int pageLeft = child.Left;
        int pageTop = child.Top;
        child.Left = control.Left;
        child.Top = control.Top;
        child.Width = control.Width;
        child.Height = control.Height;
        for (auto& onPage : child.Controls()) {
            CXmlControl& inner = *onPage.value;
            if (!EqualsNoCase(inner.ClassName, "Page")) {
                inner.Left += pageLeft;
                inner.Top += pageTop;
            }
            RecalcVSNetPageControlsAttributes(inner);
        }
    }
}

bool IsSubFormOrReport(const CXmlControl& control)
{
    return EqualsNoCase(control.ClassName, "Subform") || EqualsNoCase(control.ClassName, "Subreport");
}

// A control of a subform is measured from the subform's corner.
void MakeSubFormControlsPositionsAbsolute(CXmlControl& control)
{
    for (CXmlControl* parent = control.ParentControl(); parent; parent = parent->ParentControl()) {
        if (IsSubFormOrReport(*parent)) {
            control.Top += parent->Top;
            control.Left += parent->Left;
            break;
        }
    }
    for (auto& child : control.Controls())
        MakeSubFormControlsPositionsAbsolute(*child.value);
}

bool IsVisualStudioType(const std::string& type)
{
    for (const char* name : { "VB.NET", "C#", "J#", "C++" })
        if (EqualsNoCase(type, name))
            return true;
    return false;
}

void StartSmallTrace()
{
    if (!TraceLog().IsOn())
        return;
    std::string path = Folders().LogFolder() + "~trace.txt";
    WriteFileBytes(path, "Started at " + FormatLocalTime(std::chrono::system_clock::now(), "%Y-%m-%d %H:%M:%S") + "\r\n");
}

}  // namespace

std::unique_ptr<CXmlForm> CClientUIObjectXml::AdjustForm(const std::string& rawXml, int objectType, bool isAccess,
    int imagesFormat, const std::string& picFullPath, const std::string& htmlFullPath,
    const std::string& imagesFolderName, bool keepPositions)
{
    std::unique_ptr<CXmlForm> form;
    ErrorFrame("CClientUIObjectRawXml.Adjust", [&] {
        StartSmallTrace();
        auto loaded = std::make_unique<CXmlForm>();
        if (!loaded->LoadXml(rawXml)) {
            Trace("CClientUIObjectRawXml.Adjust: " + loaded->XmlParseError().Reason());
            return;
        }
        std::string extension = imagesFormat == 2 ? "jpg" : (imagesFormat == 3 ? "png" : "bmp");
        loaded->HasMap = true;
        if (!picFullPath.empty())
            loaded->SetPicFullPath(picFullPath);
        if (!htmlFullPath.empty())
            loaded->SetHtmlFullPath(htmlFullPath);

        CNonClientMetrics metrics;
        metrics.SearchMetrics();
        if (!isAccess && loaded->ClientAreaOffsetX == 0)
            loaded->ClientAreaOffsetX = metrics.GetFormNCM(loaded->BorderStyle) > 0 ? metrics.borderWidth * 4 : 0;
        if (!isAccess && loaded->ClientAreaOffsetY == 0) {
            int caption = metrics.GetFormNCM(loaded->BorderStyle);
            int offset = caption;
            if (caption > 0)
                offset += metrics.borderWidth * 4;
            if (loaded->HasMenu())
                offset += metrics.HeightMenus;
            loaded->ClientAreaOffsetY = offset;
        }

        // Where each section starts below the form's top.
        int sectionTop = 0;
        for (auto& entry : loaded->Sections()) {
            CXmlSection& section = *entry.value;
            section.ClientAreaOffsetY = sectionTop;
            sectionTop += section.Height + (isAccess ? section.DesignTimeHeaderHeight : 0);
        }
        for (auto& entry : loaded->Controls()) {
            if (IsVisualStudioType(loaded->SourceProjectType))
                RecalcVSNetPageControlsAttributes(*entry.value);
            else if (EqualsNoCase(loaded->SourceProjectType, "MS ACCESS"))
                MakeSubFormControlsPositionsAbsolute(*entry.value);
        }

        // Control pictures go beside the form's, named after the page and the control.
        std::string pageBase = FileBaseName(htmlFullPath.empty() ? loaded->Name : htmlFullPath);
        std::string folder = FolderOf(picFullPath);
        if (folder.empty() && !imagesFolderName.empty())
            folder = AddBackslash(imagesFolderName);
        FileControlAdjuster adjuster(folder + pageBase + "_", extension, keepPositions);
        for (auto& entry : loaded->Controls())
            adjuster.Adjust(*entry.value, 1);
        form = std::move(loaded);
    });
    return form;
}

std::string CClientUIObjectXml::Adjust(const std::string& rawXml, int objectType, bool isAccess, int imagesFormat,
    const std::string& picFullPath, const std::string& htmlFullPath, const std::string& imagesFolderName,
    bool keepPositions)
{
    std::unique_ptr<CXmlForm> form = AdjustForm(rawXml, objectType, isAccess, imagesFormat, picFullPath, htmlFullPath,
        imagesFolderName, keepPositions);
    return form ? form->XMLSTr() : std::string();
}

}  // namespace scriv
