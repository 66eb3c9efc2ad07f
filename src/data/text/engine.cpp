// SPDX-License-Identifier: MIT
#include "data/text/engine.h"

#include "text/ascii_text.h"

namespace vndesk {

namespace {

struct EngineRow {
    std::wstring_view partOfName;
    Engine engine;
    std::wstring_view script;
    std::wstring_view utcNow;
};

constexpr EngineRow kEngines[] = {
    {L"sqlite", Engine::Sqlite, L"sqlite", L"CURRENT_TIMESTAMP"},
    {L"postgres", Engine::PostgreSql, L"postgresql", L"(CURRENT_TIMESTAMP AT TIME ZONE 'UTC')"},
    {L"mysql", Engine::MySql, L"mariadb", L"UTC_TIMESTAMP()"},
    {L"mariadb", Engine::MySql, L"mariadb", L"UTC_TIMESTAMP()"},
    {L"sql server", Engine::SqlServer, L"sqlserver", L"GETUTCDATE()"},
    {L"jet", Engine::Jet, L"jet", L""},
    {L"access", Engine::Jet, L"jet", L""},
};

const EngineRow& RowOf(Engine engine) {
    for (const EngineRow& row : kEngines)
        if (row.engine == engine)
            return row;
    return kEngines[0];
}

} // namespace

Engine EngineNamed(std::wstring_view name, DatabaseKind kind) {
    for (const EngineRow& row : kEngines)
        if (FindIgnoringCase(name, row.partOfName) != std::wstring_view::npos)
            return row.engine;
    return kind == DatabaseKind::Jet ? Engine::Jet : Engine::SqlServer;
}

DatabaseKind KindOf(Engine engine) {
    return engine == Engine::Jet ? DatabaseKind::Jet : DatabaseKind::SqlServer;
}

std::wstring_view ScriptName(Engine engine) {
    return RowOf(engine).script;
}

std::wstring_view UtcNow(Engine engine) {
    return RowOf(engine).utcNow;
}

Choice ChoiceOf(Engine engine) {
    if (engine == Engine::Jet)
        return {L"IIf(", L",", L",", L")"};
    return {L"Case When ", L" Then ", L" Else ", L" End"};
}

} // namespace vndesk
