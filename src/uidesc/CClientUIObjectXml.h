#pragma once

#include <memory>
#include <string>

namespace scriv {

class CXmlForm;

// The server end of the form walk: takes the raw description a host gives and
// makes every position relative to the form's client area, names the picture
// of each control, and fills in what the host left at 0.
class CClientUIObjectXml {
public:
    // The normalised description text, or "" when the raw text does not parse.
    std::string Adjust(const std::string& rawXml, int objectType, bool isAccess, int imagesFormat,
        const std::string& picFullPath, const std::string& htmlFullPath, const std::string& imagesFolderName,
        bool keepPositions);
    // The same, answering the form itself (nothing when the raw text does not parse).
    std::unique_ptr<CXmlForm> AdjustForm(const std::string& rawXml, int objectType, bool isAccess, int imagesFormat,
        const std::string& picFullPath, const std::string& htmlFullPath, const std::string& imagesFolderName,
        bool keepPositions);
};

}  // namespace scriv
