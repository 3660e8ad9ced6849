#include "foundation/LoadedForms.h"

#include <algorithm>

#include "foundation/StringUtil.h"

namespace scriv {

void CLoadedForms::Register(IHostForm* form)
{
    if (form && std::find(m_forms.begin(), m_forms.end(), form) == m_forms.end())
        m_forms.push_back(form);
}

void CLoadedForms::Unregister(IHostForm* form)
{
    m_forms.erase(std::remove(m_forms.begin(), m_forms.end(), form), m_forms.end());
}

IHostForm* CLoadedForms::Find(std::string_view name) const
{
    for (IHostForm* form : m_forms)
        if (EqualsNoCase(form->FormName(), name))
            return form;
    return nullptr;
}

CLoadedForms& LoadedForms()
{
    static CLoadedForms forms;
    return forms;
}

}  // namespace scriv
