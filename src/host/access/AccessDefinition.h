#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The text definition of an Access form, report or macro as SaveAsText writes
// it: nested "Begin Type" ... "End" blocks of "Name =value" properties.
// Binary values ("PrtMip = Begin" with lines of hex) are skipped, strings
// continued on further lines are joined, and the code behind a form or report
// is not read.
namespace scriv {

struct AccessBlock {
    // "Form", "Section", "TextBox" ...; "" for an unnamed "Begin" group.
    std::string type;
    // The properties in the order of the text (strings without their quotes
    // and escapes); a name may come more than once (a macro's arguments).
    std::vector<std::pair<std::string, std::string>> properties;
    std::vector<std::unique_ptr<AccessBlock>> children;
    AccessBlock* parent { nullptr };
    int line { 0 };

    bool Has(std::string_view name) const;
    // A property's value (its first, compared without regard to case), or "".
    std::string Text(std::string_view name) const;
    // Every value of a property, in order.
    std::vector<std::string> Values(std::string_view name) const;
    // A number property, or the fallback.
    double Number(std::string_view name, double fallback) const;
    // A yes/no property: "NotDefault" is the opposite of the given default,
    // "-1" or "True" yes, "0" or "False" no; absent it is the default.
    bool Flag(std::string_view name, bool defaultValue) const;
    // The child blocks of that type, also those inside unnamed groups.
    std::vector<const AccessBlock*> Blocks(std::string_view blockType) const;
    // Every named child block inside the unnamed groups directly below this one.
    std::vector<const AccessBlock*> Members() const;
};

class AccessDefinition {
public:
    // Reads a definition; raises ScrivError naming the file and line when the
    // text has no object block or its blocks do not close.
    static AccessDefinition Parse(std::string_view text, const std::string& fileName);
    static AccessDefinition Load(const std::string& path);

    AccessDefinition();
    AccessDefinition(AccessDefinition&&) noexcept;
    AccessDefinition& operator=(AccessDefinition&&) noexcept;
    ~AccessDefinition();

    // The properties before the object's block (Version, Checksum ...).
    const AccessBlock& Header() const { return *m_header; }
    // The object's block: "Form" or "Report"; for a macro, whose actions are
    // unnamed blocks at the top, the header.
    const AccessBlock& Object() const { return *m_object; }
    const std::string& FileName() const { return m_fileName; }

private:
    std::unique_ptr<AccessBlock> m_header;
    AccessBlock* m_object { nullptr };
    std::string m_fileName;
};

// The text of a definition file as UTF-8: Access writes UTF-16 with a byte
// order mark, older versions the system code page; nothing when it cannot be read.
std::optional<std::string> ReadDefinitionFile(const std::string& path);

// Sets a property of the form's or report's own block in its definition file
// ("HelpContextId =77"): the line of that property changes, or one line is
// added after the block's simple properties; every other byte, the file's
// encoding and its line ends stay. False when the file cannot be read or
// written or holds no form or report.
bool WriteObjectProperty(const std::string& path, std::string_view name, std::string_view value);

// The colour an Access colour value stands for as the desktop's colour value
// (&H800000nn& system colours, else &H00BBGGRR&); nothing for no number.
std::optional<std::uint32_t> AccessColour(const std::string& value);

}  // namespace scriv
