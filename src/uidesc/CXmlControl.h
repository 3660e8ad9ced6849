#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"
#include "foundation/KeyedCollection.h"

namespace scriv {

class CXmlForm;
namespace desc {
class AttributeReader;
}

// One control of a form description, with its children. Positions are pixels
// relative to the form's client area; the hot spots add the distance of the
// client area from the window's corner, so that they fall on the screenshot.
class CXmlControl {
public:
    // Children keyed by Name. A second child of a taken name is kept without a key.
    using Collection = KeyedCollection<std::unique_ptr<CXmlControl>>;
    // Bookmarks given so far within one form, lower-cased.
    using BookmarkSet = std::unordered_set<std::string>;

    CXmlControl() = default;
    CXmlControl(const CXmlControl&) = delete;
    CXmlControl& operator=(const CXmlControl&) = delete;

    // --- building ---
    // Sets the object above (the form, or the control that contains this one).
    void init(CXmlForm& parent);
    void init(CXmlControl& parent);
    // Reads one control element and, below its "Controls" element, its
    // children. False, with XmlParseError set, for a missing element or a child
    // that fails (whose error is copied here). level is the depth used when the
    // element has no Level attribute.
    bool Parse(const pugi::xml_node& element, int level = 0);
    // The same over the text of one element.
    bool Parse(std::string_view text, int level = 0);
    // Takes a child (after init with this control) under its Name.
    CXmlControl& AddControl(std::unique_ptr<CXmlControl> child);
    // Drops the parent reference of this control and all below it. Runs once.
    void Terminate();

    // --- writing ---
    // The element at an indent of two blanks per Level, children included.
    std::string XMLSTr() const;
    // The text of one property for the page templates: Name, BookmarkName, Text,
    // Width, Height, Top, Left, TabIndex, Visible, Index, HelpContextId,
    // ClassName, OriginalClassName, TabPageTab, HotSpot; "" for any other.
    std::string Properties(std::string_view name) const;

    // --- the tree ---
    Collection& Controls() { return m_controls; }
    const Collection& Controls() const { return m_controls; }
    CXmlForm* ParentForm() const { return m_parentForm; }
    CXmlControl* ParentControl() const { return m_parentControl; }
    bool ParentObjectIsForm() const { return m_parentForm != nullptr; }
    // The form at the top, reached through the parents, or nothing.
    CXmlForm* Form() const;
    bool IsForm() const { return false; }

    // Orders the children by TabIndex (equal indexes keep their order), then
    // each child's children.
    void SortControlsUsingTabIndex();
    // Gives each child, then its children, a bookmark unique in used: its Name,
    // else Name + 1, 2 ... up to 999; none left leaves it empty (reads as Name).
    void AssignControlsBookmarkNames(BookmarkSet& used);
    // This control's children and theirs, parents first.
    void CollectControls(std::vector<CXmlControl*>& into) const;
    // Depth first below this control: the first whose NameNormalized is name.
    CXmlControl* FindControl(std::string_view normalizedName) const;

    // The same steps over any collection of controls (a form's too).
    static void SortUsingTabIndex(Collection& controls);
    static void AssignBookmarkNames(Collection& controls, BookmarkSet& used);
    static void Collect(const Collection& controls, std::vector<CXmlControl*>& into);
    static CXmlControl* Find(const Collection& controls, std::string_view normalizedName);

    // --- names and texts ---
    const std::string& ControlType() const { return m_controlType; }
    // The element's name; sets ClassName too when that is empty.
    void SetControlType(std::string type);
    std::string Name4Xml() const;
    const std::string& NameNormalized() const;
    std::string Text4Xml() const;
    // Text trimmed, less one closing ":" when longer than one character.
    std::string Caption() const;
    std::string Caption4Xml() const;
    std::string Description4Xml() const;
    // The anchor of the control's section; falls back to Name.
    std::string HtmlBookMarkName() const { return m_bookmark.empty() ? Name : m_bookmark; }
    // Blanks become "_".
    void SetHtmlBookMarkName(std::string_view bookmark);
    std::string UniqueNameWithinXmlForm() const { return HtmlBookMarkName(); }
    // Indexes, or when empty the caption (IdentifyControls not 0) or the name,
    // less every "&", cut to 32 characters and "...".
    std::string IndexesText() const;
    // Images folder of the generation + file name of PicFullPath.
    std::string PicLocalPath() const;

    bool IsTabPage() const;
    bool IsTabControl() const;
    bool IsSubFormOrSubReport() const;

    // --- geometry ---
    // Of the form at the top; 0 without one.
    int ClientAreaOffsetX() const;
    int ClientAreaOffsetY() const;
    // Of the form's section named ControlSectionName; 0 without one.
    int ControlSectionOffsetX() const;
    int ControlSectionOffsetY() const;
    // Left (Top) plus the client area offset unless noOffset, plus the Windows
    // version correction when that is switched on.
    int HotSpotLeft(bool noOffset = false) const;
    int HotSpotTop(bool noOffset = false) const;
    int HotSpotRight(bool noOffset = false) const { return HotSpotLeft(noOffset) + Width; }
    int HotSpotBottom(bool noOffset = false) const { return HotSpotTop(noOffset) + Height; }
    // The rectangle of a page's tab with the client area offset, no correction.
    int TabHotSpotLeft() const { return TabLeft + ClientAreaOffsetX(); }
    int TabHotSpotTop() const { return TabTop + ClientAreaOffsetY(); }
    int TabHotSpotRight() const { return TabHotSpotLeft() + TabWidth; }
    int TabHotSpotBottom() const { return TabHotSpotTop() + TabHeight; }
    // "left,top,right,bottom", or "" when Left is below 0.
    std::string HotSpot() const;
    // "left,top,width,height" of the tab, or "" when TabLeft is below 0.
    std::string TabPageTab() const;

    const CXmlParseError& XmlParseError() const { return m_error; }

    // --- plain values ---
    std::string ClassName;
    std::string OriginalClassName;
    std::string Name;
    std::string Text;
    std::string Description;
    std::string Indexes;
    std::string ControlSectionName;
    std::string ParentControlName;
    std::string PicFullPath;
    int Level { 0 };
    int HelpContextId { 0 };
    int Left { 0 };
    int Top { 0 };
    int Width { 0 };
    int Height { 0 };
    // -1 when the control has none.
    int TabIndex { -1 };
    // Position in a control array; 0 is not written.
    int Index { 0 };
    int Handle { 0 };
    bool Visible { true };
    bool HasCaption { false };
    int TabsQTy { 0 };
    int TabsPerRow { 0 };
    int TabFixedHeight { 0 };
    int TabFixedWidth { 0 };
    // The tab of a page; -1 for a control that is no page.
    int TabLeft { -1 };
    int TabTop { -1 };
    int TabWidth { -1 };
    int TabHeight { -1 };
    int TabPageIndex { -1 };

private:
    // The encoded name and the name it was encoded from: lookups by name
    // encode every control's name, and the name may change at any time.
    mutable std::string m_normalizedFrom;
    mutable std::string m_normalized;
    mutable bool m_normalizedKnown { false };

    bool Fail(std::string text, std::string source);
    void ReadAttributes(desc::AttributeReader& read, std::string type, int level);
    bool ParseChildren(const pugi::xml_node& element);
    std::string AttributesText() const;
    std::pair<int, int> Correction() const;

    std::string m_controlType;
    std::string m_bookmark;
    Collection m_controls;
    CXmlForm* m_parentForm { nullptr };
    CXmlControl* m_parentControl { nullptr };
    CXmlParseError m_error;
    bool m_terminated { false };
};

// The correction that windows of Windows 6 and later need on top of a hot spot,
// by source type: "MS ACCESS" (-26, -11); "VB6", "VS.NET", "VB.NET", "C#", "J#",
// "C++" (-11, -11); others (0, 0).
std::pair<int, int> HotSpotCorrection(std::string_view sourceType);
// Whether hot spots get that correction. Off by default: the form renderer of
// this program draws classic windows, whose frames need none.
bool ApplyVistaHotSpotCorrection();
void SetApplyVistaHotSpotCorrection(bool apply);

}  // namespace scriv
