#pragma once

#include "ServerTesting.h"
#include "WBImport.h"
#include "WBServer.h"
#include "WBStore.h"

#include <memory>
#include <string>
#include <vector>

namespace wbtest
{
/// A server on a new database.
class ServedProduct
{
public:
    ServedProduct()
        : m_store(wb::Store::OpenOrCreate(m_directory.File("x.db")).store), m_server(*m_store)
    {}

    void Import(const std::string& path)
    {
        const auto result = wb::ImportFile(*m_store, path, {{}, "kim"});
        EXPECT_THAT(result.errors, testing::ElementsAre());
    }
    void ImportTable(const std::string& table) { Import(m_directory.Write("t.csv", table)); }
    void ImportSample(const std::string& name) { Import(DataFile(name)); }

    std::string Call(const std::string& method, const std::string& request)
    {
        return m_server.Call(method, request, {});
    }
    std::string Initial(const std::string& request)
    {
        return Call("WBCompPartGetInitialValues", request);
    }

    wb::Store& Store() { return *m_store; }
    wb::Server& Server() { return m_server; }
    const Directory& Folder() const { return m_directory; }

private:
    Directory m_directory;
    std::unique_ptr<wb::Store> m_store;
    wb::Server m_server;
};
} // namespace wbtest
