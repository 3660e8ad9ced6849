#include "generation/clsHHK.h"

#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/CScrivantParameters.h"
#include "uidesc/CFormHTMLControlDef.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/CXmlMenu.h"

namespace scriv {

namespace {

const std::string kEol { kCrLf };

std::string LocalValue(const std::string& fileName, const std::string& bookmark)
{
    std::string local = FileNameOf(fileName);
    return bookmark.empty() ? local : local + "#" + bookmark;
}

const clsHHKObjectParameter* FindParameter(const std::vector<clsHHKObjectParameter>& parameters, std::string_view name)
{
    for (const clsHHKObjectParameter& parameter : parameters)
        if (EqualsNoCase(parameter.Name, name))
            return &parameter;
    return nullptr;
}

}  // namespace

std::string TruncateCaption(std::string_view text)
{
    std::vector<std::string> words;
    for (const std::string& word : Split(text, " "))
        if (!word.empty())
            words.push_back(word);
    if (words.size() <= 1)
        return std::string(text);
    std::string rebuilt;
    for (const std::string& word : words) {
        rebuilt += rebuilt.empty() ? word : " " + word;
        if (rebuilt.size() > 32)
            return rebuilt.substr(0, 32) + "...";
    }
    return rebuilt;
}

// --- parameters and entries ---

std::string clsHHKObjectParameter::Value() const
{
    if (Name != "Local")
        return m_value;
    std::size_t slash = m_value.find_last_of('\\');
    return slash == std::string::npos ? m_value : m_value.substr(slash + 1);
}

clsHHKObject* clsHHKObject::GetObject(std::string_view key)
{
    auto* found = m_children.Find(key);
    return found ? found->get() : nullptr;
}

std::string clsHHKObject::SortText() const
{
    const clsHHKObjectParameter* name = FindParameter(m_parameters, "Name");
    std::string display = IndexGroupDisplayValue();
    if (name && !name->Value().empty() && name->Value() != display)
        return name->Value();
    return display;
}

bool clsHHKObject::Add(std::unique_ptr<clsHHKObject> object)
{
    // The children stay sorted without case, each text once: the place is
    // found by halving.
    std::string text = object->SortText();
    std::size_t low = 0;
    std::size_t high = m_children.Count();
    while (low < high) {
        std::size_t middle = low + (high - low) / 2;
        int order = CompareNoCase(m_children.At(middle).value->SortText(), text);
        if (order == 0)
            return false;
        if (order < 0)
            low = middle + 1;
        else
            high = middle;
    }
    std::size_t position = low;
    std::string key = object->Key();
    return m_children.Insert(position, std::move(key), std::move(object));
}

std::string clsHHKObject::ParameterLines(const std::string& indent, bool withLocal) const
{
    std::string out;
    for (const clsHHKObjectParameter& parameter : m_parameters) {
        if (!withLocal && parameter.Name == "Local")
            continue;
        out += indent + "<param name=\"" + parameter.Name + "\" Value = \"" + CaptionFilter(parameter.Value()) + "\">"
            + kEol;
    }
    return out;
}

std::string clsHHKObject::GenerateHHK(int level) const
{
    std::string indent(static_cast<std::size_t>(level * 2 + 1), ' ');
    std::size_t count = m_children.Count();
    std::string out;
    if (m_isRoot) {
        for (const auto& child : m_children)
            out += child.value->GenerateHHK(level + 1);
        return out;
    }
    out += indent + "<LI> <OBJECT type=\"text/sitemap\">" + kEol;
    if (count == 0) {
        out += ParameterLines(indent, true);
        return out + indent + "</OBJECT>" + kEol;
    }
    // A keyword with several topics lists them both as its parameters and as a sublist.
    out += ParameterLines(indent, count == 1);
    if (count > 1)
        for (const auto& child : m_children)
            out += child.value->ParameterLines(indent, true);
    out += indent + "</OBJECT>" + kEol;
    if (count > 1) {
        out += indent + "<UL>" + kEol;
        for (const auto& child : m_children)
            out += child.value->GenerateHHK(level + 1);
        out += indent + "</UL>" + kEol;
        out += indent + "</OBJECT>" + kEol;
    }
    return out;
}

// --- the index ---

clsHHK::clsHHK()
    : m_root(std::make_unique<clsHHKObject>("ROOT", true))
{
}

void clsHHK::Terminate()
{
    m_root->Terminate();
}

void clsHHK::AddCustomLink(const std::string& caption, const std::string& keyword, const std::string& fileName,
    const std::string& bookmark)
{
    if (keyword.empty())
        return;
    std::string local = LocalValue(fileName, bookmark);
    clsHHKObject* group = m_root->GetObject(keyword);
    bool existed = group != nullptr;
    if (!group) {
        auto made = std::make_unique<clsHHKObject>(keyword);
        made->AddParameter("name", keyword);
        made->AddParameter("Local", local);
        group = made.get();
        if (!m_root->Add(std::move(made)))
            return;
    }
    auto item = std::make_unique<clsHHKObject>(std::string());
    item->AddParameter("Name", caption);
    item->AddParameter("Local", local);
    if (existed) {
        // The later spelling of a keyword is the one shown.
        group->SetIndexGroupDisplayValue(keyword);
        if (!group->Parameters().empty())
            group->Parameters().front().SetValue(keyword);
    }
    group->Add(std::move(item));
}

void clsHHK::AddKeywords(const std::string& text, const std::string& indexes, const std::string& file,
    const std::string& bookmark)
{
    for (const std::string& keyword : Split(indexes, "|")) {
        std::string trimmed = Trim(keyword);
        if (!trimmed.empty() && !EqualsNoCase(trimmed, text))
            AddCustomLink(text, trimmed, file, bookmark);
    }
    AddCustomLink(text, text, file, bookmark);
}

void clsHHK::AddXmlFormLinks(const CXmlForm& form, const std::string& fileName)
{
    std::string file = FileNameOf(form.HtmlFullPath().empty() ? fileName : form.HtmlFullPath());
    AddKeywords(TruncateCaption(form.Caption()), form.Indexes, file, "");
    bool byName = Parameters().IdentifyControls() == 1;
    auto addDefinition = [&](const CFormHTMLControlDef& definition) {
        std::string text;
        std::string name;
        std::string indexes;
        if (CXmlControl* control = form.GetControl(definition.ControlName)) {
            text = TruncateCaption(RemoveAll(control->Caption(), "&"));
            name = control->HtmlBookMarkName();
            indexes = control->Indexes;
        } else if (CXmlMenu* menu = form.GetMenu(definition.ControlName)) {
            text = TruncateCaption(RemoveAll(menu->Text, "&"));
            name = menu->Name;
            indexes = menu->Indexes;
        } else {
            return;
        }
        if (byName)
            text = definition.ControlName;
        if (text.empty())
            return;
        AddKeywords(text, indexes, file, GetComponentFileName(form.Name, name, ""));
    };
    for (const auto& entry : form.DocumentedControls())
        addDefinition(entry.value);
    for (const auto& entry : form.DocumentedMenus())
        addDefinition(entry.value);
}

std::string clsHHK::HHKContents() const
{
    std::string out = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">" + kEol + "<HTML>" + kEol + "<HEAD>" + kEol
        + "<!-- Sitemap 1.0 -->" + kEol + "<!-- Put Java help object tag here -->" + kEol + "</HEAD>" + kEol
        + "<BODY>" + kEol + "<UL>" + kEol;
    if (Parameters().FillIndexFromAppObjectsAndControls)
        out += m_root->GenerateHHK(0);
    return out + "</UL>" + kEol + "</BODY>" + kEol + "</HTML>" + kEol;
}

}  // namespace scriv
