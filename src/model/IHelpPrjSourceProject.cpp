#include "model/IHelpPrjSourceProject.h"

#include <array>
#include <utility>

#include "foundation/ObjectNames.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTreeNode.h"

namespace scriv {

std::string CHelpPrjSourceItem::FormNameNormalized() const
{
    return GetComponentFileName(FormName);
}

int CHelpPrjSourceItem::ObjectType() const
{
    static const std::array<std::pair<const char*, int>, 7> kinds { {
        { "Form", objtype::kForm },
        { "Report", objtype::kReport },
        { "Table", objtype::kTable },
        { "Query", objtype::kQuery },
        { "Macro", objtype::kMacro },
        { "Worksheet", objtype::kWorksheet },
        { "Chart", objtype::kChart },
    } };
    for (const auto& [name, type] : kinds)
        if (EqualsNoCase(SubType, name))
            return type;
    return objtype::kNone;
}

}  // namespace scriv
