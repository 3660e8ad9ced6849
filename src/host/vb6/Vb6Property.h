#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Properties of a VB6 form description: one "Name = Value" line each, and the
// "BeginProperty" groups (fonts, toolbar buttons, panels ...) that hold more.
namespace scriv {

// Where a value kept in the form's binary companion file stands:
// $"Form1.frx":0000 (a text) or "Form1.frx":0A2C (a picture, a list ...).
struct Vb6FrxReference {
    std::string fileName;
    std::uint32_t offset { 0 };
    // True for the "$" form, which marks a text.
    bool isText { false };
};

// One property line. Text is UTF-8; the value is kept as written so that a
// property the reader does not understand is never lost.
struct Vb6Property {
    // As written: "Caption", "Tab(0).Control(1)", "Object.ToolTipText", "_ExtentX".
    std::string name;
    // As written, without the comment: "\"Save \"\"all\"\"\"", "-1", "&H8000000F&".
    std::string value;
    // What follows "'" behind the value ("True", "Fixed Dialog"), or empty.
    std::string comment;
    // 1-based line in the file.
    int line { 0 };
    // Byte at which the value starts in the file's line.
    std::size_t valueOffset { 0 };
    // The text that an .frx reference ($"frmMain.frx":001B) stands for, once
    // the form file has read it from there.
    std::optional<std::string> frxText;

    // --- typed reads; each gives nothing when the value is not of that kind ---

    // The text of a quoted value with doubled quotes undone, or an unquoted value
    // as written (Shortcut = ^O); for a value kept in an .frx file the text
    // read from there, or nothing when it was not read.
    std::optional<std::string> Text() const;
    // A decimal number ("1455", "-74880", "8.25") or a hexadecimal one
    // ("&H8000000F&" as the 32-bit Long -2147483633, "&HFF" as 255).
    std::optional<double> Number() const;
    // -1 or True as true, 0 or False as false, any other number as not 0.
    std::optional<bool> Boolean() const;
    // A colour as its 32-bit value: &H8000000F& is 0x8000000F (a system
    // colour), &H00FFFFFF& is 0x00FFFFFF; a plain non-negative number as it is.
    std::optional<std::uint32_t> Colour() const;
    // The .frx reference of the value.
    std::optional<Vb6FrxReference> Frx() const;
};

class Vb6PropertyGroup;

// The properties and property groups of a block or group, in file order.
class Vb6PropertyList {
public:
    virtual ~Vb6PropertyList() = default;

    const std::vector<Vb6Property>& Properties() const { return m_properties; }
    const std::vector<std::unique_ptr<Vb6PropertyGroup>>& Groups() const { return m_groups; }
    // For the owner of the list, which fills in what it reads from elsewhere.
    std::vector<Vb6Property>& MutableProperties() { return m_properties; }
    std::vector<Vb6PropertyGroup*> MutableGroups();

    // The first property of that name (without regard to case), or null.
    const Vb6Property* FindProperty(std::string_view name) const;
    bool HasProperty(std::string_view name) const { return FindProperty(name) != nullptr; }
    // The first group of that name (without regard to case), or null.
    const Vb6PropertyGroup* FindGroup(std::string_view name) const;

    // Typed reads by name: the value of the property, or fallback when it is
    // absent or not of that kind.
    std::string Text(std::string_view name, std::string_view fallback = {}) const;
    double Number(std::string_view name, double fallback = 0) const;
    bool Boolean(std::string_view name, bool fallback = false) const;
    std::uint32_t Colour(std::string_view name, std::uint32_t fallback = 0) const;

    // --- building; used by the reader and by writing back ---

    // Adds a property in file order (after those on earlier lines).
    Vb6Property& AddProperty(Vb6Property property);
    Vb6PropertyGroup& AddGroup(std::unique_ptr<Vb6PropertyGroup> group);
    // The property list's own property of that name, for changing it, or null.
    Vb6Property* FindPropertyToChange(std::string_view name);
    // Adds one to every line number at or after line, in this list and below.
    virtual void ShiftLines(int fromLine);

private:
    std::vector<Vb6Property> m_properties;
    std::vector<std::unique_ptr<Vb6PropertyGroup>> m_groups;
};

// BeginProperty Font {0BE35203-...} ... EndProperty, possibly nested
// (Buttons holds Button1 .. ButtonN).
class Vb6PropertyGroup : public Vb6PropertyList {
public:
    Vb6PropertyGroup(std::string name, std::string classId, int beginLine)
        : m_name(std::move(name))
        , m_classId(std::move(classId))
        , m_beginLine(beginLine)
    {
    }

    const std::string& Name() const { return m_name; }
    // "{0BE35203-8F91-11CE-9DE3-00AA004BB851}", or empty when the file gives none.
    const std::string& ClassId() const { return m_classId; }
    int BeginLine() const { return m_beginLine; }
    int EndLine() const { return m_endLine; }
    void SetEndLine(int line) { m_endLine = line; }

    // ^Vb6PropertyList
    void ShiftLines(int fromLine) override;

private:
    std::string m_name;
    std::string m_classId;
    int m_beginLine { 0 };
    int m_endLine { 0 };
};

// Shifts a line number that stands at or after fromLine by one.
inline void ShiftLine(int& line, int fromLine)
{
    if (line >= fromLine)
        ++line;
}

}  // namespace scriv
