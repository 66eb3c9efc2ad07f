// SPDX-License-Identifier: MIT
// The uses again, with faults below the ADO bridge: each of its calls to ODBC fails with or without
// a word of the driver, loses the connection, works with a remark, or cuts what it reads. What the
// host is not told of has happened as it should, and nothing stays behind.
// VNDESK_RELIABILITY=full tries every call in every use, else some of some uses are tried.
#include <comutil.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "ado/objects/ado_object.h"
#include "faults/faulty_odbc.h"
#include "faults/kept_database.h"
#include "support/new_object.h"
#include "support/reliability.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;

struct KindOfFault {
    OdbcFault fault;
    const char* name;
    const char* onlyAt; // calls with another start cannot fail in this way; null: all can
    bool harmless;      // the host gets what it gets without the fault
    bool always;        // the short form too tries it where something is written or read last
};

constexpr KindOfFault kFaults[] = {
    {OdbcFault::Told, "fails", nullptr, false, true},
    {OdbcFault::Silent, "fails without a word", nullptr, false, false},
    {OdbcFault::Lost, "loses the connection", nullptr, false, false},
    {OdbcFault::Unconfirmed, "works and loses the connection", "SQLE", false, true},
    {OdbcFault::Remark, "works with a remark", nullptr, true, false},
    {OdbcFault::Truncated, "cuts the cells", kFetchingCall, true, true},
};

// A host's own transaction on the library's ADO: both rows or none.
std::wstring WriteTwice(const SampleDatabase&, const std::wstring& connectionString) {
    const auto connection = NewObject<_Connection>(L"ADODB.Connection");
    const auto run = [&](const wchar_t* statement) {
        ComPtr<_Recordset> rows;
        return connection->Execute(_bstr_t(statement), nullptr, adCmdText, &rows);
    };
    long level = 0;
    const bool opened =
        SUCCEEDED(connection->Open(_bstr_t(connectionString.c_str()), _bstr_t(), _bstr_t(), -1));
    const bool begun = opened && SUCCEEDED(connection->BeginTrans(&level));
    const bool written =
        begun && SUCCEEDED(run(L"update [user] set [dec]='mot' where code=1")) &&
        SUCCEEDED(run(L"insert into groups (code,name,des) values (77,'moi','hai')")) &&
        SUCCEEDED(connection->CommitTrans());
    if (begun && !written)
        connection->RollbackTrans();
    if (opened)
        connection->Close();
    return written ? L"written" : L"refused";
}

// The same with values apart from the statements, which are read back.
std::wstring WriteBound(const SampleDatabase&, const std::wstring& connectionString) {
    const auto connection = NewObject<_Connection>(L"ADODB.Connection");
    const auto run = [&](const wchar_t* statement, const wchar_t* text, long& found) {
        const auto command = NewObject<_Command>(L"ADODB.Command");
        ComPtr<Parameters> parameters;
        ComPtr<_Parameter> name, code;
        ComPtr<_Recordset> rows;
        _variant_t affected;
        const bool done = SUCCEEDED(command->putref_ActiveConnection(connection.Get())) &&
                          SUCCEEDED(command->put_CommandText(_bstr_t(statement))) &&
                          SUCCEEDED(command->get_Parameters(&parameters)) &&
                          SUCCEEDED(command->CreateParameter(_bstr_t(), adVarWChar, adParamInput,
                                                             20, _variant_t(text), &name)) &&
                          SUCCEEDED(command->CreateParameter(_bstr_t(), adInteger, adParamInput, 0,
                                                             _variant_t(77l), &code)) &&
                          SUCCEEDED(parameters->Append(name.Get())) &&
                          SUCCEEDED(parameters->Append(code.Get())) &&
                          SUCCEEDED(command->Execute(&affected, nullptr, adCmdText, &rows));
        found = done ? static_cast<long>(affected) : 0;
        ADO_LONGPTR count = 0;
        if (done && found == -1 && SUCCEEDED(rows->get_RecordCount(&count)))
            found = static_cast<long>(count);
        return done;
    };
    long level = 0, changed = 0, found = 0;
    const bool opened =
        SUCCEEDED(connection->Open(_bstr_t(connectionString.c_str()), _bstr_t(), _bstr_t(), -1));
    const bool begun = opened && SUCCEEDED(connection->BeginTrans(&level));
    const bool written = begun &&
                         run(L"insert into groups (name,code) values (?,?)", L"O'Brien", changed) &&
                         run(L"update groups set [des]=? where code=?", L"hai", changed) &&
                         run(L"select * from groups where name=? and code=?", L"O'Brien", found) &&
                         changed == 1 && found == 1 && SUCCEEDED(connection->CommitTrans());
    if (begun && !written)
        connection->RollbackTrans();
    if (opened)
        connection->Close();
    return written ? L"written" : L"refused";
}

bool IsTriedQuickly(std::string_view use) {
    return use == "Logon" || use == "UserAdded" || use == "GroupDeleted" ||
           use == "RightsWritten" || use == "Search" || use == "UserEditedRecorded" ||
           use == "GroupDeletedRecorded";
}

std::vector<Use> UsesOfOdbc() {
    std::vector<Use> uses;
    for (const Use& use : AllUses())
        if (FullRun() || IsTriedQuickly(use.name))
            uses.push_back(use);
    for (const Use& use : RecordedUses())
        if (FullRun() || IsTriedQuickly(use.name))
            uses.push_back(use);
    uses.push_back({"Transaction",
                    {},
                    WriteTwice,
                    L"written",
                    L"refused",
                    L"select count(*) from groups where code=77",
                    L"1"});
    uses.push_back({"BoundValues",
                    {},
                    WriteBound,
                    L"written",
                    L"refused",
                    L"select des from groups where code=77",
                    L"hai"});
    return uses;
}

constexpr const char* kReadingCall = "SQLGetData";

class OdbcFaults : public testing::TestWithParam<Use> {
protected:
    Played PlayWith(size_t call, OdbcFault fault) {
        odbc_.Begin(call, fault);
        const Played played = Play(GetParam(), database_.Sample());
        EXPECT_EQ(0, odbc_.Held());
        EXPECT_TRUE(odbc_.BridgeIsIdle());
        return played;
    }

    void PlayWell() {
        const Use& use = GetParam();
        well_ = PlayWith(0, OdbcFault::Told);
        calls_ = odbc_.Calls();
        EXPECT_EQ(use.answer, well_.answer);
        if (use.probe) {
            EXPECT_EQ(use.probed, database_.Sample().ScalarText(use.probe));
        }
        after_ = database_.Now();
        EXPECT_EQ(use.probe != nullptr, after_ != database_.Before());
        database_.Restore();
    }

    void PlayBadly(size_t call, const KindOfFault& kind) {
        const Use& use = GetParam();
        const std::string& name = calls_.at(call - 1);
        SCOPED_TRACE("call " + std::to_string(call) + " of " + std::to_string(calls_.size()) +
                     ", " + name + ", " + kind.name);
        const Played played = PlayWith(call, kind.fault);
        ++faults_;
        const std::wstring now = database_.Now();
        const bool done = played.answer == use.answer && now == after_;
        const bool passes = kind.fault == OdbcFault::Told || kind.fault == OdbcFault::Silent;
        if (kind.harmless) {
            EXPECT_TRUE(done);
            EXPECT_EQ(well_.messages, played.messages);
        } else {
            EXPECT_TRUE(played.answer == use.answer || played.answer == use.neutral)
                << ToUtf8(played.answer);
            EXPECT_TRUE(now == after_ || now == database_.Before() ||
                        ((use.writesUnchecked || use.addsUncounted) && passes))
                << ToUtf8(now);
            const bool refused = played.answer == use.neutral && use.answer != use.neutral;
            EXPECT_TRUE(done || played.TellsMoreThan(well_) || (refused && TellsTheHost()) ||
                        (use.tellsNoFailedWrite && LeadsToAWrite(call)));
        }
        if (now != database_.Before())
            database_.Restore();
    }

    // The writing call, or one of those that make its statement ready.
    bool LeadsToAWrite(size_t call) const {
        const auto readies = [](const std::string& name) {
            return name == "SQLFreeHandle" || name == "SQLAllocHandle" || name == "SQLSetStmtAttr";
        };
        while (call < calls_.size() && readies(calls_.at(call - 1)))
            ++call;
        return calls_.at(call - 1) == kWritingCall;
    }

    // The refusal itself is all that is told.
    bool TellsTheHost() const {
        return GetParam().raisesTheFirst || GetParam().steps.empty() || GetParam().recorded;
    }

    // All calls; or the one that writes, the last one that reads, and another one for each fault.
    bool IsTried(size_t call, const KindOfFault& kind) const {
        const std::string& name = calls_.at(call - 1);
        if (kind.onlyAt && name.rfind(kind.onlyAt, 0) != 0)
            return false;
        const bool here = kind.always && (name == kWritingCall || call == lastRead_);
        if (cellByCell_)
            return name == kReadingCall && (everyCall_ || here);
        const auto place = static_cast<size_t>(&kind - kFaults + 1);
        return everyCall_ || here || call == calls_.size() * place / std::size(kFaults);
    }

    // How many calls the use makes when it reads in blocks.
    size_t PlayAll(bool everyCall) {
        everyCall_ = everyCall;
        PlayAllReading(false);
        const size_t calls = calls_.size();
        PlayAllReading(true);
        return calls;
    }

    void PlayAllReading(bool cellByCell) {
        cellByCell_ = cellByCell;
        odbc_.SetForwardOnly(cellByCell);
        PlayWell();
        const auto read =
            std::find(calls_.rbegin(), calls_.rend(), cellByCell ? kReadingCall : kFetchingCall);
        lastRead_ = static_cast<size_t>(calls_.rend() - read);
        for (const KindOfFault& kind : kFaults)
            for (size_t call = 1; call <= calls_.size(); ++call)
                if (IsTried(call, kind))
                    PlayBadly(call, kind);
    }

    FaultyOdbc odbc_;
    const KeptDatabase database_;
    std::wstring after_;
    Played well_;
    std::vector<std::string> calls_; // of the use when all goes well
    size_t lastRead_ = 0;            // the last one that brings rows or a cell
    bool cellByCell_ = false;
    bool everyCall_ = false;
    int faults_ = 0;
};

TEST_P(OdbcFaults, LeaveTheDatabaseWholeAndNothingBehind) {
    PlayAll(false); // the first of each kind fills caches that stay
    const Holdings before;
    faults_ = 0;
    const size_t calls = PlayAll(FullRun());
    before.ExpectBack(GetParam().name, calls, faults_);
}

INSTANTIATE_TEST_SUITE_P(Uses, OdbcFaults, testing::ValuesIn(UsesOfOdbc()),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace vndesk::test
