#include "host/clsFormCollection.h"

#include <algorithm>

#include "foundation/StringUtil.h"

namespace scriv {

void clsFormCollection::Add(IHostObject* form, std::string caption)
{
    if (caption.empty())
        caption = m_processor.PropertyValue(form, "Caption");
    auto greater = std::find_if(m_captions.begin(), m_captions.end(),
        [&](const std::string& existing) { return CompareNoCase(existing, caption) > 0; });
    std::size_t at = static_cast<std::size_t>(greater - m_captions.begin());
    m_captions.insert(greater, caption);
    m_forms.insert(m_forms.begin() + static_cast<std::ptrdiff_t>(at), form);
}

std::string clsFormCollection::Caption(const IHostObject* form) const
{
    auto found = std::find(m_forms.begin(), m_forms.end(), form);
    return found == m_forms.end() ? std::string() : m_captions[static_cast<std::size_t>(found - m_forms.begin())];
}

}  // namespace scriv
