#include "host/excel/MsFormsFile.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>

#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"

namespace scriv {

namespace {

// What a control's or form's bytes did not allow; caught where that control or form ends.
struct Damaged {
    std::string problem;
};

// Little-endian reads over a stream that never step outside it; properties
// are aligned to their size counted from the start of their structure.
class Reader {
public:
    explicit Reader(std::string_view data, std::size_t pos = 0)
        : m_data(data)
        , m_pos(pos)
        , m_base(pos)
    {
    }

    std::size_t Pos() const { return m_pos; }
    std::size_t Size() const { return m_data.size(); }
    void SetBase() { m_base = m_pos; }
    void Seek(std::size_t pos, const char* what)
    {
        if (pos > m_data.size())
            throw Damaged { std::string(what) + " beyond the end of the stream" };
        m_pos = pos;
    }
    void Skip(std::size_t count, const char* what) { Seek(Need(count, what) + count, what); }
    void Align(std::size_t size)
    {
        std::size_t offset = (m_pos - m_base) % size;
        if (offset)
            m_pos = std::min(m_data.size(), m_pos + size - offset);
    }
    std::uint32_t Unsigned(std::size_t size, const char* what)
    {
        Align(size);
        return Raw(size, what);
    }
    // A value at the current place, not aligned.
    std::uint32_t Raw(std::size_t size, const char* what)
    {
        std::size_t at = Need(size, what);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < size; ++i)
            value |= static_cast<std::uint32_t>(static_cast<unsigned char>(m_data[at + i])) << (8 * i);
        m_pos += size;
        return value;
    }
    std::uint8_t U8(const char* what) { return static_cast<std::uint8_t>(Unsigned(1, what)); }
    std::uint16_t U16(const char* what) { return static_cast<std::uint16_t>(Unsigned(2, what)); }
    std::uint32_t U32(const char* what) { return Unsigned(4, what); }
    std::string_view Take(std::size_t count, const char* what)
    {
        std::size_t at = Need(count, what);
        m_pos += count;
        return m_data.substr(at, count);
    }
    // A string whose size and compression a CountOfBytesWithCompressionFlag gave,
    // padded to four bytes: compressed is one byte a character in the ANSI code
    // page, else UTF-16LE.
    std::string String(std::uint32_t sizeAndFlag, const char* what)
    {
        std::uint32_t count = sizeAndFlag & 0x7FFFFFFFu;
        bool compressed = (sizeAndFlag & 0x80000000u) != 0;
        std::string_view bytes = Take(count, what);
        Align(4);
        if (compressed)
            return FromSystemCodePage(bytes);
        if (count % 2)
            throw Damaged { std::string(what) + " of an odd size in UTF-16" };
        return ConvertToUtf8(bytes, "UTF-16LE");
    }

private:
    std::size_t Need(std::size_t count, const char* what) const
    {
        if (count > m_data.size() || m_pos > m_data.size() - count)
            throw Damaged { std::string(what) + " beyond the end of the stream" };
        return m_pos;
    }

    std::string_view m_data;
    std::size_t m_pos;
    std::size_t m_base;
};

// One property of a data block: the bit of the mask that says it is stored, its size,
// and where its value goes (null: read past).
struct Field {
    int bit;
    std::size_t size;
    std::uint32_t* value;
};

// Reads a data block of fields in order; the mask has up to 64 bits.
void ReadDataBlock(Reader& reader, std::uint64_t mask, std::initializer_list<Field> fields, const char* what)
{
    for (const Field& field : fields) {
        if (!(mask >> field.bit & 1))
            continue;
        std::uint32_t value = reader.Unsigned(field.size, what);
        if (field.value)
            *field.value = value;
    }
    reader.Align(4);
}

std::int32_t Signed(std::uint32_t value) { return static_cast<std::int32_t>(value); }

struct Guid {
    std::array<unsigned char, 16> bytes;
    bool operator==(const Guid&) const = default;
};

constexpr Guid kStdFont { { 0x03, 0x52, 0xE3, 0x0B, 0x91, 0x8F, 0xCE, 0x11, 0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51 } };
constexpr Guid kTextProps { { 0x20, 0x09, 0xC2, 0xAF, 0x4E, 0xDA, 0xCE, 0x11, 0xB9, 0x43, 0x00, 0xAA, 0x00, 0x68, 0x87, 0xB4 } };

Guid ReadGuid(Reader& reader, const char* what)
{
    Guid guid {};
    std::string_view bytes = reader.Take(16, what);
    std::memcpy(guid.bytes.data(), bytes.data(), 16);
    return guid;
}

// A GuidAndPicture: the picture's bytes are read past.
void SkipPicture(Reader& reader)
{
    ReadGuid(reader, "a picture");
    reader.Raw(4, "a picture's preamble");
    std::uint32_t size = reader.Raw(4, "a picture's size");
    reader.Skip(size, "a picture");
}

// A GuidAndFont: a standard font gives its face and size, text properties are read past.
void ReadFont(Reader& reader, std::string* face, double* points)
{
    Guid guid = ReadGuid(reader, "a font");
    if (guid == kStdFont) {
        reader.Skip(6, "a font's version, character set, flags and weight");
        std::uint32_t tenThousandths = reader.Raw(4, "a font's height");
        std::size_t length = reader.Raw(1, "a font's name size");
        std::string name = FromSystemCodePage(reader.Take(length, "a font's name"));
        if (face)
            *face = name;
        if (points)
            *points = tenThousandths / 10000.0;
    } else if (guid == kTextProps) {
        reader.Skip(2, "a font's version");
        reader.Skip(reader.Raw(2, "a font's size"), "a font");
    } else {
        throw Damaged { "a font of an unknown kind" };
    }
}

constexpr std::uint32_t kFormDontSaveClassTable = 0x8000;
constexpr std::uint32_t kSiteVisible = 0x02;
constexpr std::uint32_t kEnabled = 0x02;

// A site: the place of one control on its form, the index of its class and
// the size of its properties in the stream "o".
struct Site {
    MsFormsControl control;
    std::uint32_t classIndex { 0x7FFF };
    std::uint32_t objectSize { 0 };
};

// The properties a FormControl stores of itself and the sites it lists.
struct FormControl {
    std::string caption;
    int width { 0 };
    int height { 0 };
    std::string fontName;
    double fontSize { 0 };
    std::vector<Site> sites;
};

Site ReadSite(Reader& reader)
{
    reader.SetBase();
    reader.U16("a site's version");
    std::uint16_t size = reader.U16("a site's size");
    std::size_t end = reader.Pos() + size;
    if (end > reader.Size())
        throw Damaged { "a site beyond the end of the stream" };
    std::uint32_t mask = reader.U32("a site's mask");
    std::uint32_t name = 0, tag = 0, id = 0, help = 0, flags = 0x33, objectSize = 0, tabIndex = 0xFFFF,
                  classIndex = 0x7FFF, tip = 0, licence = 0, source = 0, rowSource = 0;
    ReadDataBlock(reader, mask,
        { { 0, 4, &name }, { 1, 4, &tag }, { 2, 4, &id }, { 3, 4, &help }, { 4, 4, &flags }, { 5, 4, &objectSize },
            { 6, 2, &tabIndex }, { 7, 2, &classIndex }, { 9, 2, nullptr }, { 11, 4, &tip }, { 12, 4, &licence },
            { 13, 4, &source }, { 14, 4, &rowSource } },
        "a site");
    Site site;
    MsFormsControl& control = site.control;
    if (mask & 1u << 0)
        control.name = reader.String(name, "a site's name");
    if (mask & 1u << 1)
        control.tag = reader.String(tag, "a site's tag");
    if (mask & 1u << 8) {
        control.left = Signed(reader.U32("a site's position"));
        control.top = Signed(reader.U32("a site's position"));
    }
    if (mask & 1u << 11)
        control.controlTipText = reader.String(tip, "a site's tip text");
    control.id = Signed(id);
    control.helpContextId = Signed(help);
    control.visible = (flags & kSiteVisible) != 0;
    control.tabIndex = static_cast<std::int16_t>(tabIndex);
    site.classIndex = classIndex;
    site.objectSize = objectSize;
    if (reader.Pos() > end)
        throw Damaged { "a site longer than its size" };
    reader.Seek(end, "a site");
    return site;
}

FormControl ReadFormControl(std::string_view stream)
{
    Reader reader(stream);
    reader.U8("the form's minor version");
    if (std::uint8_t major = reader.U8("the form's version"); major != 4)
        throw Damaged { "a form of version " + std::to_string(major) };
    std::uint16_t size = reader.U16("the form's size");
    std::size_t end = reader.Pos() + size;
    std::uint32_t mask = reader.U32("the form's mask");
    std::uint32_t booleans = 0, caption = 0;
    ReadDataBlock(reader, mask,
        { { 1, 4, nullptr }, { 2, 4, nullptr }, { 3, 4, nullptr }, { 6, 4, &booleans }, { 7, 1, nullptr },
            { 8, 1, nullptr }, { 9, 1, nullptr }, { 13, 4, nullptr }, { 15, 2, nullptr }, { 16, 1, nullptr },
            { 17, 1, nullptr }, { 18, 4, nullptr }, { 19, 4, &caption }, { 20, 2, nullptr }, { 21, 2, nullptr },
            { 22, 4, nullptr }, { 23, 1, nullptr }, { 25, 1, nullptr }, { 26, 4, nullptr }, { 27, 4, nullptr } },
        "the form's properties");
    FormControl form;
    if (mask & 1u << 10) {
        form.width = Signed(reader.U32("the form's size"));
        form.height = Signed(reader.U32("the form's size"));
    }
    if (mask & 1u << 11)
        reader.Skip(8, "the form's logical size");
    if (mask & 1u << 12)
        reader.Skip(8, "the form's scroll position");
    if (mask & 1u << 19)
        form.caption = reader.String(caption, "the form's caption");
    if (reader.Pos() > end)
        throw Damaged { "the form's properties longer than their size" };
    reader.Seek(end, "the form's properties");
    if (mask & 1u << 15)
        SkipPicture(reader);
    if (mask & 1u << 20)
        ReadFont(reader, &form.fontName, &form.fontSize);
    if (mask & 1u << 21)
        SkipPicture(reader);

    if (!(booleans & kFormDontSaveClassTable)) {
        // The class table and the counts that follow are not aligned.
        std::uint32_t classes = reader.Raw(2, "the class table");
        for (std::uint32_t i = 0; i < classes; ++i) {
            reader.Raw(2, "a class's version");
            reader.Skip(reader.Raw(2, "a class's size"), "a class");
        }
    }
    std::uint32_t count = reader.Raw(4, "the count of controls");
    std::uint32_t bytes = reader.Raw(4, "the size of the controls");
    std::size_t sitesStart = reader.Pos();
    if (bytes > reader.Size() - sitesStart)
        throw Damaged { "controls beyond the end of the stream" };
    if (count > bytes)
        throw Damaged { "more controls than bytes" };
    Reader sites(stream.substr(0, sitesStart + bytes), sitesStart);
    std::uint32_t listed = 0;
    while (listed < count) {
        sites.U8("a control's depth");
        std::uint8_t typeOrCount = sites.U8("a control's type");
        std::uint32_t run = 1;
        std::uint8_t type = typeOrCount;
        if (typeOrCount & 0x80) {
            run = typeOrCount & 0x7F;
            type = sites.U8("a control's type");
        }
        if (type != 1)
            throw Damaged { "a control of site type " + std::to_string(type) };
        if (run == 0)
            throw Damaged { "an empty run of controls" };
        listed += run;
    }
    if (listed != count)
        throw Damaged { "the types of the controls do not match their count" };
    sites.Align(4);
    for (std::uint32_t i = 0; i < count; ++i)
        form.sites.push_back(ReadSite(sites));
    return form;
}

// The class indexes of the controls Office caches without a class table.
std::optional<MsFormsControlType> TypeOfClass(std::uint32_t classIndex)
{
    switch (classIndex) {
    case 7: return MsFormsControlType::Page;
    case 12: return MsFormsControlType::Image;
    case 14: return MsFormsControlType::Frame;
    case 15: return MsFormsControlType::TextBox;
    case 16: return MsFormsControlType::SpinButton;
    case 17: return MsFormsControlType::CommandButton;
    case 18: return MsFormsControlType::TabStrip;
    case 21: return MsFormsControlType::Label;
    case 23: return MsFormsControlType::TextBox;
    case 24: return MsFormsControlType::ListBox;
    case 25: return MsFormsControlType::ComboBox;
    case 26: return MsFormsControlType::CheckBox;
    case 27: return MsFormsControlType::OptionButton;
    case 28: return MsFormsControlType::ToggleButton;
    case 47: return MsFormsControlType::ScrollBar;
    case 57: return MsFormsControlType::MultiPage;
    default: return std::nullopt;
    }
}

// A MorphData control's display style names its kind.
std::optional<MsFormsControlType> TypeOfDisplayStyle(std::uint32_t style)
{
    switch (style) {
    case 1: return MsFormsControlType::TextBox;
    case 2: return MsFormsControlType::ListBox;
    case 3: case 7: return MsFormsControlType::ComboBox;
    case 4: return MsFormsControlType::CheckBox;
    case 5: return MsFormsControlType::OptionButton;
    case 6: return MsFormsControlType::ToggleButton;
    default: return std::nullopt;
    }
}

// The header of a control's properties: its version and the size of the mask and blocks.
std::size_t ReadControlHeader(Reader& reader, const char* what)
{
    reader.SetBase();
    reader.U8(what);
    reader.U8(what);
    std::uint16_t size = reader.U16(what);
    std::size_t end = reader.Pos() + size;
    if (end > reader.Size())
        throw Damaged { std::string(what) + " beyond the end of its data" };
    return end;
}

void ReadSize(Reader& reader, MsFormsControl& control)
{
    control.width = Signed(reader.U32("a control's size"));
    control.height = Signed(reader.U32("a control's size"));
}

void CheckEnd(const Reader& reader, std::size_t end, const char* what)
{
    if (reader.Pos() > end)
        throw Damaged { std::string(what) + " longer than their size" };
}

void ReadCommandButton(Reader& reader, MsFormsControl& control)
{
    std::size_t end = ReadControlHeader(reader, "a button's properties");
    std::uint32_t mask = reader.U32("a button's mask");
    std::uint32_t various = 0x1B, caption = 0;
    ReadDataBlock(reader, mask,
        { { 0, 4, nullptr }, { 1, 4, nullptr }, { 2, 4, &various }, { 3, 4, &caption }, { 4, 4, nullptr },
            { 6, 1, nullptr }, { 7, 2, nullptr }, { 8, 2, nullptr }, { 10, 2, nullptr } },
        "a button's properties");
    if (mask & 1u << 3)
        control.caption = reader.String(caption, "a button's caption");
    if (mask & 1u << 5)
        ReadSize(reader, control);
    CheckEnd(reader, end, "a button's properties");
    control.enabled = (various & kEnabled) != 0;
}

void ReadLabel(Reader& reader, MsFormsControl& control)
{
    std::size_t end = ReadControlHeader(reader, "a label's properties");
    std::uint32_t mask = reader.U32("a label's mask");
    std::uint32_t various = 0x0080001B, caption = 0;
    ReadDataBlock(reader, mask,
        { { 0, 4, nullptr }, { 1, 4, nullptr }, { 2, 4, &various }, { 3, 4, &caption }, { 4, 4, nullptr },
            { 6, 1, nullptr }, { 7, 4, nullptr }, { 8, 2, nullptr }, { 9, 2, nullptr }, { 10, 2, nullptr },
            { 11, 2, nullptr }, { 12, 2, nullptr } },
        "a label's properties");
    if (mask & 1u << 3)
        control.caption = reader.String(caption, "a label's caption");
    if (mask & 1u << 5)
        ReadSize(reader, control);
    CheckEnd(reader, end, "a label's properties");
    control.enabled = (various & kEnabled) != 0;
}

// Text, list and combo boxes, check boxes, option and toggle buttons share one record.
void ReadMorphData(Reader& reader, MsFormsControl& control)
{
    std::size_t end = ReadControlHeader(reader, "a control's properties");
    std::uint64_t mask = reader.U32("a control's mask");
    mask |= static_cast<std::uint64_t>(reader.U32("a control's mask")) << 32;
    // The only property of the mask's upper half with data is the group name.
    if (mask >> 32)
        mask |= std::uint64_t { 1 } << 32;
    std::uint32_t various = 0x2C80081B, style = 0, value = 0, caption = 0, group = 0;
    ReadDataBlock(reader, mask,
        { { 0, 4, &various }, { 1, 4, nullptr }, { 2, 4, nullptr }, { 3, 4, nullptr }, { 4, 1, nullptr },
            { 5, 1, nullptr }, { 6, 1, &style }, { 7, 1, nullptr }, { 9, 2, nullptr }, { 10, 4, nullptr },
            { 11, 2, nullptr }, { 12, 2, nullptr }, { 13, 2, nullptr }, { 14, 2, nullptr }, { 15, 2, nullptr },
            { 16, 1, nullptr }, { 17, 1, nullptr }, { 18, 1, nullptr }, { 20, 1, nullptr }, { 21, 1, nullptr },
            { 22, 4, &value }, { 23, 4, &caption }, { 24, 4, nullptr }, { 25, 4, nullptr }, { 26, 4, nullptr },
            { 27, 2, nullptr }, { 28, 2, nullptr }, { 29, 2, nullptr }, { 32, 4, &group } },
        "a control's properties");
    if (mask & 1u << 8)
        ReadSize(reader, control);
    if (mask & 1u << 22)
        control.value = reader.String(value, "a control's value");
    if (mask & 1u << 23)
        control.caption = reader.String(caption, "a control's caption");
    CheckEnd(reader, end, "a control's properties");
    control.enabled = (various & kEnabled) != 0;
    if (mask & 1u << 6)
        if (std::optional<MsFormsControlType> type = TypeOfDisplayStyle(style))
            control.type = *type;
}

// Images, scroll bars and spin buttons keep their size last of their properties.
void ReadSizeLast(Reader& reader, MsFormsControl& control)
{
    std::size_t end = ReadControlHeader(reader, "a control's properties");
    if (end < reader.Pos() + 12)
        throw Damaged { "a control's properties without a size" };
    reader.Seek(end - 8, "a control's size");
    ReadSize(reader, control);
}

void ReadTabStrip(Reader& reader, MsFormsControl& control)
{
    std::size_t end = ReadControlHeader(reader, "a tab strip's properties");
    std::uint32_t mask = reader.U32("a tab strip's mask");
    std::uint32_t items = 0;
    ReadDataBlock(reader, mask,
        { { 0, 4, nullptr }, { 1, 4, nullptr }, { 2, 4, nullptr }, { 5, 4, &items }, { 6, 1, nullptr },
            { 8, 4, nullptr }, { 9, 4, nullptr }, { 11, 4, nullptr }, { 12, 4, nullptr }, { 15, 4, nullptr },
            { 17, 4, nullptr }, { 18, 4, nullptr }, { 20, 4, nullptr }, { 21, 4, nullptr }, { 22, 4, nullptr },
            { 23, 4, nullptr }, { 24, 2, nullptr } },
        "a tab strip's properties");
    if (mask & 1u << 4)
        ReadSize(reader, control);
    // The tabs' captions: each its size and flag, then its text.
    std::size_t itemsEnd = reader.Pos() + items;
    if (itemsEnd > end)
        throw Damaged { "a tab strip's captions longer than its properties" };
    while (reader.Pos() < itemsEnd)
        control.tabs.push_back(reader.String(reader.U32("a tab's caption"), "a tab's caption"));
    CheckEnd(reader, itemsEnd, "a tab strip's captions");
}

class FormReader {
public:
    explicit FormReader(const std::string& source)
        : m_source(source)
    {
    }

    // The controls of the storage's FormControl; the storage is the file's
    // root or a frame's, page's or multipage's "i<ID>".
    std::vector<MsFormsControl> Controls(const CompoundStorage& storage, const FormControl& form, int depth)
    {
        std::vector<MsFormsControl> controls;
        const std::string* objects = storage.Stream("o");
        std::string_view data = objects ? std::string_view(*objects) : std::string_view();
        std::size_t offset = 0;
        for (const Site& site : form.sites) {
            std::size_t at = offset;
            offset += site.objectSize;
            MsFormsControl control = site.control;
            std::optional<MsFormsControlType> type = TypeOfClass(site.classIndex);
            if (!type) {
                Skip(control, "a control of class " + std::to_string(site.classIndex) + " that is not read");
                continue;
            }
            control.type = *type;
            try {
                if (at + site.objectSize > data.size())
                    throw Damaged { "its properties beyond the end of the stream \"o\"" };
                Reader reader(data.substr(0, at + site.objectSize), at);
                ReadObject(reader, control, site);
                if (IsContainer(control.type))
                    ReadContainer(storage, control, depth);
            } catch (const Damaged& damaged) {
                Skip(control, damaged.problem);
                continue;
            }
            controls.push_back(std::move(control));
        }
        return controls;
    }

private:
    static bool IsContainer(MsFormsControlType type)
    {
        return type == MsFormsControlType::Frame || type == MsFormsControlType::MultiPage
            || type == MsFormsControlType::Page;
    }

    void ReadObject(Reader& reader, MsFormsControl& control, const Site& site)
    {
        if (site.objectSize == 0)
            return;
        switch (control.type) {
        case MsFormsControlType::CommandButton: return ReadCommandButton(reader, control);
        case MsFormsControlType::Label: return ReadLabel(reader, control);
        case MsFormsControlType::TextBox:
        case MsFormsControlType::ListBox:
        case MsFormsControlType::ComboBox:
        case MsFormsControlType::CheckBox:
        case MsFormsControlType::OptionButton:
        case MsFormsControlType::ToggleButton: return ReadMorphData(reader, control);
        case MsFormsControlType::Image:
        case MsFormsControlType::ScrollBar:
        case MsFormsControlType::SpinButton: return ReadSizeLast(reader, control);
        case MsFormsControlType::TabStrip: return ReadTabStrip(reader, control);
        default: return;
        }
    }

    // A frame, page or multipage keeps its caption, size and controls in a storage of its own.
    void ReadContainer(const CompoundStorage& parent, MsFormsControl& control, int depth)
    {
        if (depth > 8)
            throw Damaged { "containers nested too deep" };
        const CompoundStorage* storage = parent.Storage("i" + std::to_string(control.id));
        const std::string* stream = storage ? storage->Stream("f") : nullptr;
        if (!stream)
            throw Damaged { "no storage i" + std::to_string(control.id) + " with its controls" };
        FormControl form = ReadFormControl(*stream);
        if (control.caption.empty())
            control.caption = form.caption;
        control.width = form.width;
        control.height = form.height;
        control.children = Controls(*storage, form, depth + 1);
        if (control.type == MsFormsControlType::MultiPage) {
            // A multipage keeps its pages' captions in a tab strip of its own.
            std::vector<std::string> captions;
            std::erase_if(control.children, [&](const MsFormsControl& child) {
                if (child.type == MsFormsControlType::Page)
                    return false;
                if (child.type == MsFormsControlType::TabStrip && captions.empty())
                    captions = child.tabs;
                else
                    Trace("MsFormsFile: " + m_source + ": " + child.name + " of " + control.name
                        + " is no page and is left out");
                return true;
            });
            for (std::size_t i = 0; i < control.children.size(); ++i) {
                MsFormsControl& page = control.children[i];
                if (i < captions.size())
                    page.caption = captions[i];
                if (page.caption.empty())
                    page.caption = page.name;
            }
        }
    }

    void Skip(const MsFormsControl& control, const std::string& problem)
    {
        Trace("MsFormsFile: " + m_source + ": the control " + (control.name.empty() ? "without a name" : control.name)
            + " is left out: " + problem);
    }

    const std::string& m_source;
};

}  // namespace

const char* MsFormsTypeName(MsFormsControlType type)
{
    switch (type) {
    case MsFormsControlType::Label: return "Label";
    case MsFormsControlType::TextBox: return "TextBox";
    case MsFormsControlType::ListBox: return "ListBox";
    case MsFormsControlType::ComboBox: return "ComboBox";
    case MsFormsControlType::CheckBox: return "CheckBox";
    case MsFormsControlType::OptionButton: return "OptionButton";
    case MsFormsControlType::ToggleButton: return "ToggleButton";
    case MsFormsControlType::CommandButton: return "CommandButton";
    case MsFormsControlType::Frame: return "Frame";
    case MsFormsControlType::Image: return "Image";
    case MsFormsControlType::ScrollBar: return "ScrollBar";
    case MsFormsControlType::SpinButton: return "SpinButton";
    case MsFormsControlType::TabStrip: return "TabStrip";
    case MsFormsControlType::MultiPage: return "MultiPage";
    case MsFormsControlType::Page: return "Page";
    }
    return "";
}

int HimetricToPixels(int himetric)
{
    double pixels = himetric * 96.0 / 2540.0;
    return static_cast<int>(pixels < 0 ? pixels - 0.5 : pixels + 0.5);
}

MsFormsForm MsFormsFile::Parse(const CompoundStorage& storage, const std::string& source)
{
    const std::string* stream = storage.Stream("f");
    if (!stream)
        Raise(status::kGeneralFailure, "MsFormsFile.Parse", "The form's controls in '" + source + "' have no stream \"f\".");
    FormControl control;
    try {
        control = ReadFormControl(*stream);
    } catch (const Damaged& damaged) {
        Trace("MsFormsFile: " + source + ": the form cannot be read: " + damaged.problem);
        Raise(status::kGeneralFailure, "MsFormsFile.Parse",
            "The form's controls in '" + source + "' cannot be read: " + damaged.problem + ".");
    }
    MsFormsForm form;
    form.caption = control.caption;
    form.width = control.width;
    form.height = control.height;
    form.fontName = control.fontName;
    form.fontSize = control.fontSize;
    form.controls = FormReader(source).Controls(storage, control, 0);
    return form;
}

MsFormsForm MsFormsFile::Load(const std::string& path, std::size_t offset)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        Raise(status::kGeneralFailure, "MsFormsFile.Load", "The file '" + path + "' cannot be read.");
    std::string_view data(*bytes);
    data = offset < data.size() ? data.substr(offset) : std::string_view();
    // Excel puts a header of 24 bytes before the compound file; its second word is the file's size.
    if (data.size() >= 24 && data.substr(0, 2) == "LB") {
        std::uint32_t size = 0;
        for (int i = 7; i >= 4; --i)
            size = size << 8 | static_cast<unsigned char>(data[static_cast<std::size_t>(i)]);
        data = data.substr(24, size);
    }
    std::optional<CompoundStorage> storage = ReadCompoundFile(data);
    if (!storage) {
        Trace("MsFormsFile: " + FileNameOf(path) + " holds no compound file at " + std::to_string(offset));
        Raise(status::kGeneralFailure, "MsFormsFile.Load", "The file '" + path + "' holds no form's controls.");
    }
    return Parse(*storage, FileNameOf(path));
}

}  // namespace scriv
