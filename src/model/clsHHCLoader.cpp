#include "model/clsHHCLoader.h"

#include <cmath>
#include <cstdio>
#include <optional>

#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);
constexpr std::string_view kNameParamStart = "<param name=\"Name\" value=\"";

// Turns one line of a .hhc into a line of well formed XML, or nothing when the
// line is dropped. Values pass unchanged: the import decodes nothing and
// encodes nothing.
std::optional<std::string> PrepareLine(std::string_view raw)
{
    std::string line = Trim(RemoveAll(raw, "\t"));
    for (std::string_view dropped : { "<!DOCTYPE", "<meta", "</LI>" })
        if (StartsWithNoCase(line, dropped))
            return std::nullopt;
    if (line.rfind("</OBJECT>", 0) == 0)
        return "</OBJECT></LI>";
    if (line.rfind(kNameParamStart, 0) == 0) {
        std::size_t valueLength = line.size() >= kNameParamStart.size() + 2 ? line.size() - kNameParamStart.size() - 2 : 0;
        std::string value = line.substr(kNameParamStart.size(), valueLength);
        return std::string(kNameParamStart) + value + "\"/>";
    }
    if (line.rfind("<param", 0) == 0) {
        line.pop_back();
        return line + "/>";
    }
    return line;
}

// A Comment parameter carries "key=value" pairs between a 9-character lead-in
// and a closing character.
std::vector<std::pair<std::string, std::string>> CommentPairs(std::string_view comment)
{
    std::vector<std::pair<std::string, std::string>> pairs;
    std::u32string text = Utf8ToUtf32(comment);
    if (text.size() < 10)
        return pairs;
    std::string inner = Utf32ToUtf8(text.substr(9, text.size() - 10));
    for (const std::string& piece : Split(inner, ";")) {
        std::size_t equals = piece.find('=');
        if (equals == std::string::npos)
            continue;
        std::string key = Trim(piece.substr(0, equals));
        if (!key.empty())
            pairs.emplace_back(key, piece.substr(equals + 1));
    }
    return pairs;
}

std::string ParamLine(const std::string& indent, std::string_view name, const std::string& value)
{
    return indent + "<param name=\"" + std::string(name) + "\" value=\"" + value + "\">" + kCrLfText;
}

std::string LevelText(int level)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%04d", level);
    return buffer;
}

std::string IndexesAttribute(const std::string& indexes)
{
    return indexes.empty() ? std::string() : " Indexes = \"" + indexes + "\" ";
}

}  // namespace

// --- clsHHCObjectEntry ---

void clsHHCObjectEntry::AddParameter(std::string name, std::string value)
{
    if (!name.empty())
        m_parameters.Add(std::move(name), std::move(value));
}

std::string clsHHCObjectEntry::Parameter(std::string_view name) const
{
    const std::string* value = m_parameters.Find(name);
    return value ? *value : std::string();
}

std::string clsHHCObjectEntry::Skipped() const
{
    // No parameter feeds the skip mark, so an imported topic is never skipped.
    return "0";
}

int clsHHCObjectEntry::ScrivVersionMajor() const
{
    std::optional<double> number = ParseNumber(Trim(Version()));
    if (!number || !std::isfinite(*number) || std::fabs(*number) > 1e9)
        return 1;
    return static_cast<int>(std::trunc(*number));
}

clsHHCObjectEntry* clsHHCObjectEntry::AddChild(std::unique_ptr<clsHHCObjectEntry> child)
{
    child->m_parent = this;
    m_children.push_back(std::move(child));
    return m_children.back().get();
}

std::string clsHHCObjectEntry::HHCStr() const
{
    std::string indent(static_cast<std::size_t>(std::max(m_level, 0)) * 8, ' ');
    std::string inner = indent + std::string(8, ' ');
    std::string out = indent + "<LI>  <OBJECT type=\"text/sitemap\">" + kCrLfText;
    out += ParamLine(inner, "Name", Name());
    out += ParamLine(inner, "Local", Local());
    if (!URL().empty())
        out += ParamLine(inner, "URL", URL());
    if (!Comment().empty())
        out += ParamLine(inner, "Comment", Comment());
    if (!ImageNumber().empty())
        out += ParamLine(inner, "ImageNumber", ImageNumber());
    out += indent + "</OBJECT>" + kCrLfText;
    if (!m_children.empty()) {
        out += indent + "<UL>" + kCrLfText;
        for (const auto& child : m_children)
            out += child->HHCStr();
        out += indent + "</UL>" + kCrLfText;
    }
    return out;
}

clsHHCObjectEntry::OpeningTag clsHHCObjectEntry::ObjectOpening(bool isForm) const
{
    std::string name = Name();
    std::string element = isForm ? "FORM" : "REPORT";
    std::string key = XmlEncodeChars(SourceApp()) + (isForm ? ".Form_" : ".Report_") + name;
    std::string text = "<" + element + " Name=\"" + name + "\" Key=\"" + key + "\" caption=\"" + name + "\" icon = \""
        + (isForm ? "form" : "report") + "\" ProcessCode=\"999\" GeneratedHtmlFile=\"" + Local() + "\" title=\"" + name
        + "\" Skipped = \"" + Skipped() + "\"  stype = \"" + SourceObjectType() + "\"  ExtraValue = \"" + ExtraValue()
        + "\" " + IndexesAttribute(Indexes()) + " Type = \"" + (isForm ? "2" : "3") + "\" ";
    return { element, text };
}

clsHHCObjectEntry::OpeningTag clsHHCObjectEntry::Opening(int numbering) const
{
    std::string name = Name();
    std::string sourceType = SourceObjectType();
    auto named = [&](std::string_view a, std::string_view b) {
        return EqualsNoCase(name, a) || EqualsNoCase(name, b) || EqualsNoCase(sourceType, a) || EqualsNoCase(sourceType, b);
    };

    std::string element;
    std::string extra;
    std::string icon;
    std::string type;
    if (m_level == 1) {
        element = "Project";
    } else if (named("Dialogs", "All Dialogs")) {
        element = "Dialogs", extra = " ProcessCode = \"1\" ", icon = "form", type = "Dialog";
    } else if (named("Forms", "All Forms")) {
        element = "Forms", extra = "  ProcessCode = \"1\" ", type = "Form";
    } else if (named("Reports", "All Reports")) {
        element = "Reports", extra = "  ProcessCode = \"2\" ", icon = "report", type = "Report";
    } else {
        element = "x" + (numbering > 0 ? std::to_string(numbering) : std::string()) + LevelText(m_level);
    }

    if (ScrivVersionMajor() >= 2) {
        type = sourceType;
        if (EqualsNoCase(type, "Form") || EqualsNoCase(type, "Dialog"))
            return ObjectOpening(true);
        if (EqualsNoCase(type, "Report"))
            return ObjectOpening(false);
        // Controls are rebuilt from the XML forms; their imported entries stay hidden.
        if (EqualsNoCase(type, "Control"))
            extra += " hidden=\"true\" ";
    }

    std::string text = "<" + element + " caption=\"" + name + "\" GeneratedHtmlFile=\"" + Local() + "\" ";
    if (!type.empty())
        text += " stype = \"" + type + "\" ";
    text += IndexesAttribute(Indexes());
    if (!icon.empty())
        text += " icon = \"" + icon + "\" ";
    return { element, text + extra };
}

std::string clsHHCObjectEntry::XMLSTr(int& numbering) const
{
    OpeningTag opening = Opening(numbering);
    std::string indent(static_cast<std::size_t>(std::max(m_level - 1, 0)) * 4, ' ');
    std::string out = indent + opening.text;
    if (m_children.empty())
        return out + " />" + kCrLfText;
    out += " >" + kCrLfText;
    for (const auto& child : m_children) {
        ++numbering;
        out += child->XMLSTr(numbering);
    }
    return out + indent + "</" + opening.element + ">" + kCrLfText;
}

// --- clsHHCLoader ---

std::string clsHHCLoader::PrepareText(std::string_view hhcText)
{
    std::vector<std::string> lines { std::string(kXmlHeaderUtf8) };
    for (const std::string& raw : SplitLines(hhcText))
        if (auto line = PrepareLine(raw))
            lines.push_back(std::move(*line));
    return Join(lines, kCrLf);
}

std::uint32_t clsHHCLoader::Load(const std::string& path)
{
    auto bytes = ReadFileText(path);
    if (!bytes) {
        m_entries.clear();
        m_parseError.Clear();
        m_parseError.SetUrl(path);
        m_parseError.SetErrInfo(status::kGeneralFailure, "The file cannot be read.", "clsHHCLoader.Load");
        return status::kGeneralFailure;
    }
    std::string_view body = *bytes;
    if (body.substr(0, 3) == "\xEF\xBB\xBF")
        body.remove_prefix(3);
    std::string text = IsValidUtf8(body) ? std::string(body) : FromSystemCodePage(body);
    std::uint32_t code = LoadText(text);
    m_parseError.SetUrl(path);
    return code;
}

std::uint32_t clsHHCLoader::LoadText(std::string_view text)
{
    m_entries.clear();
    m_parseError.Clear();
    CXMLFile xml;
    std::uint32_t code = xml.LoadXml(PrepareText(text));
    if (code != status::kOk) {
        m_parseError = xml.XmlParseError();
        return code;
    }
    std::vector<clsHHCObjectEntry*> open;
    Walk(xml.DocumentElement(), 0, open);
    return status::kOk;
}

void clsHHCLoader::Walk(const pugi::xml_node& element, int level, std::vector<clsHHCObjectEntry*>& open)
{
    for (pugi::xml_node child : element.children()) {
        if (child.type() != pugi::node_element)
            continue;
        std::string name = child.name();
        if (EqualsNoCase(name, "BODY") || EqualsNoCase(name, "LI"))
            Walk(child, level, open);
        else if (EqualsNoCase(name, "UL"))
            Walk(child, level + 1, open);
        else if (EqualsNoCase(name, "OBJECT"))
            AddEntry(child, level, open);
    }
}

void clsHHCLoader::AddEntry(const pugi::xml_node& object, int level, std::vector<clsHHCObjectEntry*>& open)
{
    auto entry = std::make_unique<clsHHCObjectEntry>();
    entry->SetLevel(level);
    for (pugi::xml_node param : object.children()) {
        if (param.type() == pugi::node_element && EqualsNoCase(param.name(), "param"))
            entry->AddParameter(AttributeNoCase(param, "name"), AttributeNoCase(param, "value"));
    }
    for (auto& [key, value] : CommentPairs(entry->Comment()))
        entry->AddParameter(key, value);

    // The nearest earlier entry of a lower level is the parent.
    clsHHCObjectEntry* parent = nullptr;
    for (auto it = open.rbegin(); it != open.rend(); ++it) {
        if ((*it)->Level() < level) {
            parent = *it;
            break;
        }
    }
    clsHHCObjectEntry* added = nullptr;
    if (parent) {
        added = parent->AddChild(std::move(entry));
    } else {
        m_entries.push_back(std::move(entry));
        added = m_entries.back().get();
    }
    open.push_back(added);
}

std::string clsHHCLoader::GetXMLStr() const
{
    const clsHHCObjectEntry* first = FirstEntry();
    if (!first)
        return {};
    int numbering = 0;
    return std::string(kXmlHeaderUtf8) + kCrLfText + first->XMLSTr(numbering);
}

std::uint32_t clsHHCLoader::SaveXml(const std::string& path) const
{
    std::string text = GetXMLStr();
    if (text.empty())
        return status::kGeneralFailure;
    CXMLFile writer;
    return writer.SaveXml(path, text);
}

}  // namespace scriv
