// SPDX-License-Identifier: MIT
// The library's database helpers on both kinds of database: each test runs on the embedded one and
// on the server.
#pragma once
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <windows.h>

#include "data/connect/database.h"
#include "data/connect/recordset.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/sample_database.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {

// The platform's message box, read while it is shown and closed by the Enter key.
struct PlainBox {
    std::wstring title, text;
    std::vector<int> buttons;
};

inline PlainBox ReadPlainBox() {
    const HWND box = WaitForClass(L"#32770");
    WaitUntil([=] { return FocusWindow(box) == GetDlgItem(box, IDOK); });
    PlainBox shown;
    shown.title = TextOf(box);
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const std::wstring type = ClassName(child);
        if (type == L"Button" && IsWindowVisible(child))
            shown.buttons.push_back(GetDlgCtrlID(child));
        else if (type != L"Button" && !TextOf(child).empty())
            shown.text = TextOf(child);
    }
    PressKey(VK_RETURN);
    WaitForClose(box);
    return shown;
}

// Runs steps that show one plain message.
template <class Steps> PlainBox WhileClosingBox(Steps steps) {
    PlainBox shown;
    DialogDriver user([&] { shown = ReadPlainBox(); });
    steps();
    user.Finish();
    return shown;
}

enum class Engine { Embedded, Server };

inline std::string NameOfEngine(const testing::TestParamInfo<Engine>& info) {
    return info.param == Engine::Embedded ? "Embedded" : "Server";
}

// The database that a test may write to, opened as the library does.
class OpenedDatabase {
public:
    explicit OpenedDatabase(Engine engine)
        : sample(engine == Engine::Embedded ? SampleDatabase::Embedded()
                                            : SampleDatabase::Server()),
          opened(OpenConnection(sample.ConnectionString())) {}
    ~OpenedDatabase() {
        if (opened.connection)
            CloseConnection(opened);
    }

    SampleDatabase sample;
    Database opened;
};

class DataTest : public testing::TestWithParam<Engine> {
protected:
    void SetUp() override {
        if (GetParam() == Engine::Server && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        database_ = std::make_unique<OpenedDatabase>(GetParam());
    }

    const Database& Db() const { return database_->opened; }
    const SampleDatabase& Sample() const { return database_->sample; }
    DatabaseKind Kind() const { return database_->opened.kind; }

    // A statement in the dialect of the library, through its connection.
    HRESULT Execute(const std::wstring& statement) const {
        Microsoft::WRL::ComPtr<_Recordset> rows;
        return Db().connection->Execute(_bstr_t(statement.c_str()), nullptr, -1, &rows);
    }

    // First value of a statement in the dialect of the library.
    std::wstring Value(const std::wstring& statement) const {
        Recordset rows;
        rows.Create(Db());
        rows.Open(statement);
        if (rows.Eof())
            return L"(no row)";
        const _variant_t value = rows.Value(0L);
        return value.vt == VT_NULL ? L"(null)" : static_cast<const wchar_t*>(_bstr_t(value));
    }

private:
    std::unique_ptr<OpenedDatabase> database_;
};

#define ON_BOTH_ENGINES(suite)                                                                     \
    INSTANTIATE_TEST_SUITE_P(Engines, suite, testing::Values(Engine::Embedded, Engine::Server),    \
                             NameOfEngine)

} // namespace vndesk::test
