#include "host/vb6/Vb6FormFile.h"

#include <algorithm>
#include <map>

#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/vb6/FrxFile.h"

namespace scriv {

namespace {

// Deeper nesting than any form the IDE can hold; the limit keeps a damaged
// file from exhausting the stack of the recursive tree operations.
constexpr std::size_t kMaxDepth = 100;

struct TopType {
    std::string_view libraryType;
    Vb6FormKind kind;
};

constexpr TopType kTopTypes[] = {
    { "VB.Form", Vb6FormKind::Form },
    { "VB.MDIForm", Vb6FormKind::MDIForm },
    { "VB.UserControl", Vb6FormKind::UserControl },
    { "VB.UserDocument", Vb6FormKind::UserDocument },
    { "VB.PropertyPage", Vb6FormKind::PropertyPage },
};

std::optional<Vb6FormKind> KindOfTopType(std::string_view type)
{
    if (!type.empty() && type.front() == '{')
        return Vb6FormKind::Designer;
    for (const TopType& top : kTopTypes) {
        if (EqualsNoCase(type, top.libraryType))
            return top.kind;
    }
    return std::nullopt;
}

// A line quoted in a message: decoded, trimmed, and not too long.
std::string Quoted(std::string_view raw)
{
    std::string text = DecodeVb6(TrimVb6(raw));
    if (CharCount(text) > 60)
        text = LeftChars(text, 57) + "...";
    return "\"" + text + "\"";
}

std::size_t LeadingBlanks(std::string_view raw)
{
    std::size_t count = 0;
    while (count < raw.size() && IsVb6Blank(raw[count]))
        ++count;
    return count;
}

// A quoted text of an Object line, starting at pos; moves pos behind it.
std::optional<std::string> ReadObjectText(std::string_view raw, std::size_t& pos)
{
    pos += LeadingBlanks(raw.substr(pos));
    if (pos >= raw.size() || raw[pos] != '"')
        return std::nullopt;
    std::size_t close = raw.find('"', pos + 1);
    if (close == std::string_view::npos)
        return std::nullopt;
    std::string text = DecodeVb6(raw.substr(pos + 1, close - pos - 1));
    pos = close + 1;
    return text;
}

// The code page the fonts of a form say its texts are in: the form's own
// font first, then the one most of its controls' fonts name; "" when no font
// names one (character sets 0 and 1 say nothing).
std::string CodePageOfFonts(const std::vector<Vb6RawLine>& lines)
{
    int depth = 0;
    std::vector<std::string> groups;
    std::string formCodePage;
    std::map<std::string, int> controlCodePages;
    for (const Vb6RawLine& raw : lines) {
        std::string fault;
        std::optional<Vb6Line> line = ReadVb6Line(raw.bytes, fault);
        if (!line)
            continue;
        switch (line->kind) {
        case Vb6Line::Kind::Begin:
            ++depth;
            break;
        case Vb6Line::Kind::End:
            --depth;
            break;
        case Vb6Line::Kind::BeginProperty:
            groups.emplace_back(line->name);
            break;
        case Vb6Line::Kind::EndProperty:
            if (!groups.empty())
                groups.pop_back();
            break;
        case Vb6Line::Kind::Property: {
            if (groups.empty() || !EqualsNoCase(groups.back(), "Font") || !EqualsNoCase(line->name, "Charset"))
                break;
            std::string codePage = CodePageOfFontCharset(ToInt(std::string(line->value)));
            if (codePage.empty())
                break;
            if (depth == 1 && groups.size() == 1)
                formCodePage = formCodePage.empty() ? codePage : formCodePage;
            else
                ++controlCodePages[codePage];
            break;
        }
        case Vb6Line::Kind::Blank:
            break;
        }
    }
    if (!formCodePage.empty())
        return formCodePage;
    auto most = std::max_element(controlCodePages.begin(), controlCodePages.end(),
        [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == controlCodePages.end() ? std::string() : most->first;
}

}  // namespace

// --- reading ---

class Vb6FormFile::Reader {
public:
    explicit Reader(Vb6FormFile& file)
        : m_file(file)
        , m_lines(file.m_lines)
        , m_name(FileNameOf(file.m_path))
    {
    }

    void Run()
    {
        std::size_t index = ReadHeader();
        index = ReadTopBegin(index);
        index = m_file.m_kind == Vb6FormKind::Designer ? ReadDesignerBody(index) : ReadBody(index);
        ReadAttributes(index);
    }

private:
    // A frame of the open blocks: a block, or a property group inside one.
    struct Frame {
        Vb6Block* block { nullptr };
        Vb6PropertyGroup* group { nullptr };
        int line { 0 };
    };

    [[noreturn]] void Fail(int line, const std::string& what) const
    {
        Raise(status::kGeneralFailure, "Vb6FormFile.Read", Vb6Place(m_name.empty() ? "form" : m_name, line) + what);
    }

    Vb6Line Read(std::size_t index) const
    {
        std::string fault;
        std::optional<Vb6Line> line = ReadVb6Line(m_lines[index].bytes, fault);
        if (!line)
            Fail(static_cast<int>(index) + 1, fault + ": " + Quoted(m_lines[index].bytes));
        return *line;
    }

    bool IsBlank(std::size_t index) const { return TrimVb6(m_lines[index].bytes).empty(); }

    std::size_t ReadHeader()
    {
        std::size_t index = 0;
        while (index < m_lines.size() && IsBlank(index))
            ++index;
        if (index == m_lines.size() || !StartsWithVb6Keyword(m_lines[index].bytes, "VERSION"))
            Fail(static_cast<int>(std::min(index + 1, std::max<std::size_t>(m_lines.size(), 1))),
                "this is no VB6 form file: it does not start with a VERSION line");
        std::string_view version = TrimVb6(TrimVb6(m_lines[index].bytes).substr(7));
        if (version.empty())
            Fail(static_cast<int>(index) + 1, "the VERSION line names no version");
        m_file.m_version = Decode(version);
        for (++index; index < m_lines.size(); ++index) {
            const std::string& raw = m_lines[index].bytes;
            if (IsBlank(index))
                continue;
            if (StartsWithVb6Keyword(raw, "Begin"))
                return index;
            if (!StartsWithVb6Keyword(raw, "Object"))
                Fail(static_cast<int>(index) + 1, "an unknown line before the form: " + Quoted(raw));
            ReadObjectLine(index);
        }
        Fail(static_cast<int>(m_lines.size()), "the file holds no form: there is no Begin line");
    }

    void ReadObjectLine(std::size_t index)
    {
        const std::string& raw = m_lines[index].bytes;
        std::size_t pos = LeadingBlanks(raw) + 6;
        pos += LeadingBlanks(std::string_view(raw).substr(pos));
        Vb6ObjectLine object;
        object.line = static_cast<int>(index) + 1;
        std::optional<std::string> reference;
        if (pos < raw.size() && raw[pos] == '=')
            reference = ReadObjectText(raw, ++pos);
        if (!reference)
            Fail(object.line, "an Object line needs = and a quoted reference: " + Quoted(raw));
        object.reference = *reference;
        pos += LeadingBlanks(std::string_view(raw).substr(pos));
        if (pos < raw.size() && raw[pos] == ';') {
            std::optional<std::string> fileName = ReadObjectText(raw, ++pos);
            if (!fileName)
                Fail(object.line, "an Object line needs a quoted file name after \";\": " + Quoted(raw));
            object.fileName = *fileName;
            pos += LeadingBlanks(std::string_view(raw).substr(pos));
        }
        if (pos != raw.size())
            Fail(object.line, "unexpected text in an Object line: " + Quoted(raw));
        m_file.m_objects.push_back(std::move(object));
    }

    std::size_t ReadTopBegin(std::size_t index)
    {
        Vb6Line line = Read(index);
        int lineNumber = static_cast<int>(index) + 1;
        std::optional<Vb6FormKind> kind = line.kind == Vb6Line::Kind::Begin ? KindOfTopType(line.type) : std::nullopt;
        if (!kind)
            Fail(lineNumber, Quoted(m_lines[index].bytes) + " is no form, user control, user document, property page or designer");
        m_file.m_kind = *kind;
        m_file.m_form = std::make_unique<Vb6Block>(Decode(line.type), Decode(line.name), lineNumber, nullptr);
        return index + 1;
    }

    Vb6Property MakeProperty(const Vb6Line& line, int lineNumber) const
    {
        return Vb6Property { Decode(line.name), Decode(line.value), Decode(line.comment), lineNumber, line.valueOffset,
            std::nullopt };
    }

    std::string Decode(std::string_view bytes) const { return DecodeVb6(bytes, m_file.m_codePage); }

    std::size_t ReadBody(std::size_t index)
    {
        std::vector<Frame> open { { m_file.m_form.get(), nullptr, m_file.m_form->BeginLine() } };
        for (; index < m_lines.size(); ++index) {
            Vb6Line line = Read(index);
            int lineNumber = static_cast<int>(index) + 1;
            Frame top = open.back();
            Vb6PropertyList& list = top.group ? static_cast<Vb6PropertyList&>(*top.group) : *top.block;
            switch (line.kind) {
            case Vb6Line::Kind::Blank:
                break;
            case Vb6Line::Kind::Property:
                list.AddProperty(MakeProperty(line, lineNumber));
                break;
            case Vb6Line::Kind::BeginProperty: {
                CheckDepth(open, lineNumber);
                if (!top.group)
                    top.block->NoteNestedLine(lineNumber);
                auto group = std::make_unique<Vb6PropertyGroup>(Decode(line.name), Decode(line.guid), lineNumber);
                open.push_back({ top.block, &list.AddGroup(std::move(group)), lineNumber });
                break;
            }
            case Vb6Line::Kind::EndProperty:
                if (!top.group)
                    Fail(lineNumber, "EndProperty without BeginProperty");
                top.group->SetEndLine(lineNumber);
                open.pop_back();
                break;
            case Vb6Line::Kind::Begin: {
                if (top.group)
                    Fail(lineNumber, "a Begin inside BeginProperty " + top.group->Name() + ": EndProperty is missing");
                CheckDepth(open, lineNumber);
                top.block->NoteNestedLine(lineNumber);
                auto child = std::make_unique<Vb6Block>(Decode(line.type), Decode(line.name), lineNumber, top.block);
                open.push_back({ &top.block->AddChild(std::move(child)), nullptr, lineNumber });
                break;
            }
            case Vb6Line::Kind::End:
                if (top.group)
                    Fail(lineNumber, "End inside BeginProperty " + top.group->Name() + ": EndProperty is missing");
                top.block->SetEndLine(lineNumber);
                open.pop_back();
                if (open.empty())
                    return index + 1;
                break;
            }
        }
        const Frame& innermost = open.back();
        Fail(innermost.line, Quoted(m_lines[static_cast<std::size_t>(innermost.line) - 1].bytes) + " is never closed");
    }

    void CheckDepth(const std::vector<Frame>& open, int lineNumber) const
    {
        if (open.size() >= kMaxDepth)
            Fail(lineNumber, "blocks are nested more than " + std::to_string(kMaxDepth) + " levels deep");
    }

    // A designer's own properties are read up to its first nested block; the
    // rest of its description is kept as it stands, up to the End at the margin.
    std::size_t ReadDesignerBody(std::size_t index)
    {
        Vb6Block& form = *m_file.m_form;
        for (; index < m_lines.size(); ++index) {
            Vb6Line line = Read(index);
            int lineNumber = static_cast<int>(index) + 1;
            if (line.kind == Vb6Line::Kind::Property)
                form.AddProperty(MakeProperty(line, lineNumber));
            else if (line.kind == Vb6Line::Kind::Begin || line.kind == Vb6Line::Kind::BeginProperty) {
                form.NoteNestedLine(lineNumber);
                break;
            } else if (line.kind == Vb6Line::Kind::End) {
                form.SetEndLine(lineNumber);
                return index + 1;
            } else if (line.kind == Vb6Line::Kind::EndProperty)
                Fail(lineNumber, "EndProperty without BeginProperty");
        }
        for (; index < m_lines.size(); ++index) {
            std::string_view raw = m_lines[index].bytes;
            if (LeadingBlanks(raw) == 0 && EqualsNoCase(TrimVb6(raw), "End")) {
                form.SetEndLine(static_cast<int>(index) + 1);
                return index + 1;
            }
        }
        Fail(form.BeginLine(), Quoted(m_lines[static_cast<std::size_t>(form.BeginLine()) - 1].bytes) + " is never closed");
    }

    void ReadAttributes(std::size_t index)
    {
        for (; index < m_lines.size() && StartsWithVb6Keyword(m_lines[index].bytes, "Attribute"); ++index) {
            std::string_view raw = m_lines[index].bytes;
            std::string_view rest = TrimVb6(raw).substr(9);
            std::size_t equals = rest.find('=');
            if (equals == std::string_view::npos)
                Fail(static_cast<int>(index) + 1, "an Attribute line needs \"=\": " + Quoted(raw));
            m_file.m_attributes.push_back({ Decode(TrimVb6(rest.substr(0, equals))), Decode(TrimVb6(rest.substr(equals + 1))),
                static_cast<int>(index) + 1 });
        }
        m_file.m_codeLine = static_cast<int>(index) + 1;
    }

    Vb6FormFile& m_file;
    const std::vector<Vb6RawLine>& m_lines;
    std::string m_name;
};

Vb6FormFile Vb6FormFile::Load(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes && !FileExists(path))
        Raise(status::kGeneralFailure, "Vb6FormFile.Load", "The form file '" + path + "' does not exist.");
    if (!bytes)
        Raise(status::kGeneralFailure, "Vb6FormFile.Load", "Can't read the form file '" + path + "'");
    Vb6FormFile file = Parse(*bytes, path);
    file.ReadFrxTexts();
    return file;
}

Vb6FormFile Vb6FormFile::Parse(std::string_view bytes, std::string path)
{
    Vb6FormFile file;
    file.m_path = std::move(path);
    file.m_lines = SplitRawLines(bytes);
    file.m_codePage = CodePageOfFonts(file.m_lines);
    file.m_codePageFromFonts = !file.m_codePage.empty();
    if (file.m_codePage.empty())
        file.m_codePage = SystemCodePage();
    Reader(file).Run();
    return file;
}

void Vb6FormFile::ReadFrxTexts()
{
    std::map<std::string, std::optional<FrxFile>> files;
    auto read = [&](Vb6PropertyList& list, auto& self) -> void {
        for (Vb6Property& property : list.MutableProperties()) {
            std::optional<Vb6FrxReference> reference = property.Frx();
            if (!reference || !reference->isText)
                continue;
            auto found = files.find(reference->fileName);
            if (found == files.end()) {
                std::string path = FindPathNoCase(JoinPath(FolderOf(m_path), ToNativePath(reference->fileName)));
                found = files.emplace(reference->fileName, FrxFile::Load(path)).first;
            }
            if (found->second)
                property.frxText = found->second->Text(reference->offset, m_codePage);
        }
        for (Vb6PropertyGroup* group : list.MutableGroups())
            self(*group, self);
    };
    std::vector<Vb6Block*> blocks { m_form.get() };
    for (const Vb6Block* block : m_form->Descendants())
        blocks.push_back(const_cast<Vb6Block*>(block));
    for (Vb6Block* block : blocks)
        read(*block, read);
}

std::string Vb6FormFile::Attribute(std::string_view name) const
{
    auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
        [&](const Vb6Attribute& attribute) { return EqualsNoCase(attribute.name, name); });
    return found == m_attributes.end() ? std::string() : found->Text();
}

std::string Vb6FormFile::Code() const
{
    std::string bytes;
    for (std::size_t i = static_cast<std::size_t>(m_codeLine) - 1; i < m_lines.size(); ++i)
        bytes += m_lines[i].bytes + m_lines[i].end;
    return DecodeVb6(bytes, m_codePage);
}

// --- writing back ---

struct Vb6FormFile::Layout {
    std::string indent;
    std::size_t field { 16 };
    std::size_t gap { 3 };
};

Vb6Block* Vb6FormFile::OwnBlock(const Vb6Block& block)
{
    std::vector<Vb6Block*> pending { m_form.get() };
    while (!pending.empty()) {
        Vb6Block* candidate = pending.back();
        pending.pop_back();
        if (candidate == &block)
            return candidate;
        for (const auto& child : candidate->Children())
            pending.push_back(child.get());
    }
    return nullptr;
}

bool Vb6FormFile::SetProperty(const Vb6Block& block, std::string_view name, std::string_view value)
{
    Vb6Block* own = OwnBlock(block);
    if (!own)
        Raise(status::kGeneralFailure, "Vb6FormFile.SetProperty", "The block " + block.Name() + " is not of " + m_path);
    if (value.find_first_of("\r\n") != std::string_view::npos)
        Raise(status::kGeneralFailure, "Vb6FormFile.SetProperty", "A value of " + std::string(name) + " can't hold a line end");
    if (Vb6Property* property = own->FindPropertyToChange(name))
        return ChangeLine(*property, value);
    AddLine(*own, name, value);
    return true;
}

bool Vb6FormFile::ChangeLine(Vb6Property& property, std::string_view value)
{
    Vb6RawLine& raw = m_lines[static_cast<std::size_t>(property.line) - 1];
    std::string bytes = raw.bytes.substr(0, property.valueOffset) + EncodeVb6(value, m_codePage);
    if (bytes == raw.bytes)
        return false;
    std::string fault;
    std::optional<Vb6Line> line = ReadVb6Line(bytes, fault);
    if (!line || line->kind != Vb6Line::Kind::Property)
        Raise(status::kGeneralFailure, "Vb6FormFile.SetProperty",
            Vb6Place(FileNameOf(m_path), property.line) + "the value " + std::string(value) + " would not read back: " + fault);
    property.value = DecodeVb6(line->value, m_codePage);
    property.comment = DecodeVb6(line->comment, m_codePage);
    raw.bytes = std::move(bytes);
    m_dirty = true;
    return true;
}

// The layout of the block's property lines: their indent, the width the names
// are padded to, and the blanks between "=" and the value.
Vb6FormFile::Layout Vb6FormFile::LayoutFor(const Vb6Block& block) const
{
    Layout layout;
    const std::string& begin = m_lines[static_cast<std::size_t>(block.BeginLine()) - 1].bytes;
    layout.indent = begin.substr(0, LeadingBlanks(begin)) + "   ";
    for (const Vb6Property& property : block.Properties()) {
        std::string_view raw = m_lines[static_cast<std::size_t>(property.line) - 1].bytes;
        std::size_t indent = LeadingBlanks(raw);
        std::size_t equals = raw.find('=', indent);
        std::size_t nameEnd = raw.find_first_of(" \t=", indent);
        layout.indent = std::string(raw.substr(0, indent));
        layout.gap = property.valueOffset - equals - 1;
        if (equals > nameEnd) {
            layout.field = equals - indent;
            break;
        }
    }
    return layout;
}

void Vb6FormFile::AddLine(Vb6Block& block, std::string_view name, std::string_view value)
{
    Layout layout = LayoutFor(block);
    std::string text = layout.indent + std::string(name);
    if (name.size() < layout.field)
        text.append(layout.field - name.size(), ' ');
    text += "=" + std::string(layout.gap, ' ') + std::string(value);
    std::string bytes = EncodeVb6(text, m_codePage);
    std::string fault;
    std::optional<Vb6Line> line = ReadVb6Line(bytes, fault);
    if (!line || line->kind != Vb6Line::Kind::Property || line->name != name)
        Raise(status::kGeneralFailure, "Vb6FormFile.SetProperty",
            "The line " + text + " would not read back" + (fault.empty() ? std::string() : ": " + fault));
    int lineNumber = block.FirstNestedLine();
    std::size_t at = static_cast<std::size_t>(lineNumber) - 1;
    std::string end = m_lines[at].end;
    if (end.empty())
        end = at > 0 && !m_lines[at - 1].end.empty() ? m_lines[at - 1].end : std::string(kCrLf);
    Vb6Property property = Vb6Property { std::string(name), DecodeVb6(line->value, m_codePage),
        DecodeVb6(line->comment, m_codePage), lineNumber, line->valueOffset, std::nullopt };
    ShiftLines(lineNumber);
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), Vb6RawLine { std::move(bytes), std::move(end) });
    block.AddProperty(std::move(property));
    m_dirty = true;
}

void Vb6FormFile::ShiftLines(int fromLine)
{
    for (Vb6ObjectLine& object : m_objects)
        ShiftLine(object.line, fromLine);
    m_form->ShiftLines(fromLine);
    for (Vb6Attribute& attribute : m_attributes)
        ShiftLine(attribute.line, fromLine);
    ShiftLine(m_codeLine, fromLine);
}

bool Vb6FormFile::Save()
{
    if (!m_dirty)
        return false;
    if (m_path.empty() || !WriteFileBytes(m_path, Bytes()))
        Raise(status::kGeneralFailure, "Vb6FormFile.Save", "Can't write the form file '" + m_path + "'");
    m_dirty = false;
    return true;
}

std::string Vb6FormFile::BooleanValue(bool value)
{
    return value ? "-1  'True" : "0   'False";
}

}  // namespace scriv
