#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scriv {

// One command between the logic and the host, and its answer, as one line of XML:
// <cmd name="Name"><params A="1" B="x" /><text>...</text></cmd>
// Parameters keep the order in which they were added; the answer is the same
// command with the parameter RetValue added or replaced.
class CXmlCommand {
public:
    using Parameters = std::vector<std::pair<std::string, std::string>>;

    const std::string& Name() const { return m_name; }
    // One-based, as the protocol counts; "" out of range.
    std::string GetParamName(std::size_t index) const;
    // By one-based index. Empty when the command has no name, or while a
    // generation is being stopped (the read itself polls for that).
    std::string GetParamValue(std::size_t index) const;
    // By name, without regard to case.
    std::string GetParamValue(std::string_view name) const;
    bool ParamDefined(std::string_view name) const;
    std::size_t ParamCount() const { return m_params.size(); }
    const Parameters& Params() const { return m_params; }

    // Builds the text from name and parameters, then reads it back, so that a
    // built command and a received one are alike.
    CXmlCommand& Build(std::string name, const Parameters& params);
    std::string Serialize() const;
    // Reads a command; text that the XML parser refuses is read by hand.
    CXmlCommand& Deserialize(std::string_view text);

    // A new name goes at the end; a known one keeps its place.
    void AddParamValue(std::string_view name, std::string value);

    const std::string& Text() const { return m_text; }
    void SetText(std::string text) { m_text = std::move(text); }

    // Decodes character references in a value that the hand parser found.
    static std::string ReplaceSpecialCharsRev(std::string_view text);

private:
    void ParseCommandByHand(std::string_view text);
    std::string RawParamValue(std::string_view name) const;

    std::string m_name;
    Parameters m_params;
    std::string m_text;
};

}  // namespace scriv
