#pragma once

#include <memory>
#include <string>
#include <vector>

namespace scriv {

class CHelpPrjTree;
class IHelpPrjSourceProject;

// Makes the nodes of one group of application objects, as XML strings that
// become nodes of the contents tree.
class IXmlSerializer {
public:
    virtual ~IXmlSerializer() = default;
    // The strings of the collection, each followed by CR LF.
    virtual std::string XmlText() const = 0;
    // Fills the collection from the source project and answers it.
    virtual const std::vector<std::string>& XmlCollection(CHelpPrjTree& tree, IHelpPrjSourceProject& sourceProject) = 0;
    virtual void Reset() = 0;
};

// Makes the serializer a node names, or the one of an object group.
class IClassFactory {
public:
    virtual ~IClassFactory() = default;
    virtual std::unique_ptr<IXmlSerializer> CreateObject(const std::string& name) = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateFormsListObject() = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateReportsListObject() = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateTablesListObject() = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateQueriesListObject() = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateMacrosListObject() = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateWorksheetsListObject() = 0;
    virtual std::unique_ptr<IXmlSerializer> CreateChartsListObject() = 0;
};

// The forms of a source project as FORM nodes.
class clsVBFormsList : public IXmlSerializer {
public:
    // ^IXmlSerializer
    std::string XmlText() const override;
    const std::vector<std::string>& XmlCollection(CHelpPrjTree& tree, IHelpPrjSourceProject& sourceProject) override;
    void Reset() override { m_collection.clear(); }

private:
    std::vector<std::string> m_collection;
};

// The reports, tables, queries, macros, worksheets or charts of a source
// project as nodes of their kind (REPORT, TABLE ...), one topic each.
class clsObjectsList : public IXmlSerializer {
public:
    // kind is the subtype of the items: "Report", "Table", "Query", "Macro", "Worksheet", "Chart".
    explicit clsObjectsList(std::string kind)
        : m_kind(std::move(kind))
    {
    }
    // ^IXmlSerializer
    std::string XmlText() const override;
    const std::vector<std::string>& XmlCollection(CHelpPrjTree& tree, IHelpPrjSourceProject& sourceProject) override;
    void Reset() override { m_collection.clear(); }

private:
    std::string m_kind;
    std::vector<std::string> m_collection;
};

// The factory of the contents tree: "GetVBFormsXml" and the forms list make a
// clsVBFormsList; every other name and group makes nothing.
class CHelpPrjTreeCF : public IClassFactory {
public:
    // ^IClassFactory
    std::unique_ptr<IXmlSerializer> CreateObject(const std::string& name) override;
    std::unique_ptr<IXmlSerializer> CreateFormsListObject() override;
    std::unique_ptr<IXmlSerializer> CreateReportsListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateTablesListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateQueriesListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateMacrosListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateWorksheetsListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateChartsListObject() override { return nullptr; }
};

// The factory of the contents tree of a source that has more than forms: as
// CHelpPrjTreeCF, and "GetVBReportsXml", "GetTablesXml", "GetQueriesXml",
// "GetMacrosXml", "GetWorksheetsXml", "GetChartsXml" and the lists of those
// groups make a clsObjectsList of their kind.
class CHelpPrjObjectsCF : public CHelpPrjTreeCF {
public:
    // ^IClassFactory
    std::unique_ptr<IXmlSerializer> CreateObject(const std::string& name) override;
    std::unique_ptr<IXmlSerializer> CreateReportsListObject() override;
    std::unique_ptr<IXmlSerializer> CreateTablesListObject() override;
    std::unique_ptr<IXmlSerializer> CreateQueriesListObject() override;
    std::unique_ptr<IXmlSerializer> CreateMacrosListObject() override;
    std::unique_ptr<IXmlSerializer> CreateWorksheetsListObject() override;
    std::unique_ptr<IXmlSerializer> CreateChartsListObject() override;
};

}  // namespace scriv
