#include "foundation/CCodePages.h"

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"
#include "foundation/CodePage.h"
#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

std::unique_ptr<CCodePage> ReadPage(const pugi::xml_node& element)
{
    auto page = std::make_unique<CCodePage>();
    page->LName = Trim(AttributeNoCase(element, "LName"));
    page->LCode = Trim(AttributeNoCase(element, "LCode"));
    page->CP1 = Trim(AttributeNoCase(element, "CP1"));
    page->CP2 = Trim(AttributeNoCase(element, "CP2"));
    page->CP3 = Trim(AttributeNoCase(element, "CP3"));
    page->HHPLName = AttributeNoCase(element, "HHPLName");
    page->HHPDefaultFont = AttributeNoCase(element, "HHPDefaultFont");
    return page;
}

// Codes compare as numbers when both are numbers, so "01033" finds "1033".
bool SameCode(std::string_view a, std::string_view b)
{
    if (EqualsNoCase(a, b))
        return true;
    std::optional<std::int64_t> left = ParseInteger(a);
    std::optional<std::int64_t> right = ParseInteger(b);
    return left && right && *left == *right;
}

}  // namespace

std::uint32_t CCodePages::Load(const std::string& path)
{
    m_pages.Clear();
    if (!FileExists(path))
        return status::kCodePagesMissing;
    CXMLFile xml;
    if (std::uint32_t code = xml.Load(path); code != 0) {
        UserWarningMessage(FormatCode(code) + " - " + xml.XmlParseError().Reason() + " in '" + path + "'");
        return code;
    }
    pugi::xml_node root = xml.SelectSingleNode("//CodePages");
    if (!root)
        return status::kGeneralFailure;
    for (pugi::xml_node element : root.children()) {
        if (element.type() != pugi::node_element)
            continue;
        std::unique_ptr<CCodePage> page = ReadPage(element);
        if (page->LName.empty())
            continue;
        std::string key = page->Key();
        m_pages.Add(std::move(key), std::move(page));
    }
    return status::kOk;
}

void CCodePages::Terminate()
{
    m_pages.Clear();
}

const CCodePage* CCodePages::Page(std::string_view name) const
{
    const auto* entry = m_pages.Find(name);
    return entry ? entry->get() : nullptr;
}

const CCodePage* CCodePages::FirstLanguageOfCodePage(std::string_view codePage) const
{
    std::string wanted = WindowsAnsiCodePage(codePage);
    if (wanted.empty())
        return nullptr;
    for (const auto& entry : m_pages)
        if (WindowsAnsiCodePage(entry.value->CP1) == wanted)
            return entry.value.get();
    return nullptr;
}

const CCodePage* CCodePages::GetCodePageByLanguageCode(std::string_view code) const
{
    std::string wanted = Trim(code);
    if (wanted.empty())
        return nullptr;
    for (const auto& entry : m_pages)
        if (SameCode(entry.value->LCode, wanted))
            return entry.value.get();
    return nullptr;
}

}  // namespace scriv
