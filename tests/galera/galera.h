// SPDX-License-Identifier: MIT
// Three nodes of one Galera cluster (scripts/with-galera): what is written on one is on all. A node
// is killed, and comes back. Before each test there are three.
#pragma once

#include <gtest/gtest.h>

#include "support/forms/font_in_use.h"
#include "support/sample_database.h"
#include "support/server_control.h"

namespace vndesk::test {

inline constexpr int kNodes = 3;

class Galera : public testing::Test {
protected:
    void SetUp() override {
        if (!SampleDatabase::GaleraAvailable())
            GTEST_SKIP() << "no cluster of MariaDB servers: VNDESK_GALERA is not set";
        Restore();
    }

    // Nodes are numbered from 1.
    void Kill(int node) {
        killed_ = node;
        nodes_.Give("kill " + std::to_string(node));
    }
    // The one that was killed comes back, and gets what it lacks.
    void Restore() {
        if (killed_)
            nodes_.Give("start " + std::to_string(killed_));
        killed_ = 0;
    }

    // A connection string that names this node first, and the others after it.
    static std::wstring From(int node, const std::wstring& connection) {
        const std::vector<std::wstring> nodes = Nodes(connection);
        std::wstring servers = nodes.at(node - 1);
        for (int i = 1; i < kNodes; ++i)
            servers += L"," + nodes.at((node - 1 + i) % kNodes);
        return WithServers(connection, servers);
    }
    // The same with this node only: the driver reads a port behind a name in lists only.
    static std::wstring At(int node, const std::wstring& connection) {
        const std::wstring server = Nodes(connection).at(node - 1);
        return WithServers(connection, server + L"," + server);
    }

    // Every table, row by row, is the same wherever it is read. A node first reads what it has got.
    static void ExpectSameEverywhere(const SampleDatabase& database) {
        std::vector<std::vector<OdbcSession::Row>> all;
        for (int node = 1; node <= kNodes; ++node) {
            OdbcSession look(At(node, database.OdbcString()));
            look.Execute(L"set session wsrep_sync_wait=15");
            std::wstring tables;
            for (const auto& row : look.Query(L"show tables"))
                tables += (tables.empty() ? L"`" : L",`") + row.at(0).value_or(L"") + L"`";
            all.push_back(look.Query(L"checksum table " + tables + L" extended"));
            EXPECT_LT(5u, all.back().size());
            EXPECT_EQ(all.front(), all.back()) << "node " << node;
        }
    }

private:
    static constexpr std::wstring_view kServers = L"Server=";

    static std::vector<std::wstring> Nodes(const std::wstring& connection) {
        const size_t begin = connection.find(kServers) + kServers.size();
        std::wistringstream servers(connection.substr(begin, connection.find(L';', begin) - begin));
        std::vector<std::wstring> nodes;
        for (std::wstring node; std::getline(servers, node, L',');)
            nodes.push_back(node);
        return nodes;
    }
    static std::wstring WithServers(std::wstring connection, const std::wstring& servers) {
        const size_t begin = connection.find(kServers) + kServers.size();
        return connection.replace(begin, connection.find(L';', begin) - begin, servers);
    }

    // That of all controls on forms that are prepared.
    const FontInUse font_{{kHouseFont, 9}};
    ServerControl nodes_;
    static inline int killed_ = 0;
};

} // namespace vndesk::test
