#include "host/access/CDataObjectProcessor.h"

#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"

namespace scriv {

namespace {

class DataObject : public IHostObject { };

}  // namespace

CDataObjectProcessor::CDataObjectProcessor(std::string name, std::vector<Field> fields)
    : m_name(std::move(name))
    , m_fields(std::move(fields))
    , m_object(std::make_unique<DataObject>())
{
}

CDataObjectProcessor::~CDataObjectProcessor() = default;

bool CDataObjectProcessor::HasProperty(IHostObject* object, const std::string& name)
{
    return object == m_object.get() && EqualsNoCase(name, "Name");
}

std::string CDataObjectProcessor::PropertyValue(IHostObject* object, const std::string& name)
{
    return HasProperty(object, name) ? m_name : std::string();
}

std::string CDataObjectProcessor::FormMenusXML(IHostObject*)
{
    return "<Menu>" + std::string(kCrLf) + "</Menu>";
}

std::vector<IClientFormProcessor::Field> CDataObjectProcessor::FieldsCollectionGet(const std::string& objectName,
    const std::string& objectKind)
{
    return EqualsNoCase(objectName, m_name) ? m_fields : std::vector<Field>();
}

}  // namespace scriv
