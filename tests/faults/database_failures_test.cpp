// SPDX-License-Identifier: MIT
// Each use of the library while its database fails under it: the file is locked by another program,
// cannot be written, is cut short, is gone, or its disk is full; the server is killed, and stays
// away or is back. The harm is done while the form of the last step is open.
#include <gtest/gtest.h>

#include "data/connect/database.h"
#include "faults/kept_database.h"
#include "support/child_process.h"
#include "support/env.h"
#include "support/reliability.h"
#include "support/server_control.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

std::string Bytes(const std::wstring& file) {
    std::string bytes;
    FILE* opened = _wfopen(file.c_str(), L"rb");
    if (!opened)
        return "(no file)";
    char block[65536];
    while (const size_t size = fread(block, 1, sizeof block, opened))
        bytes.append(block, size);
    fclose(opened);
    return bytes;
}

// --- The embedded database ---

// Another program that has the file for itself.
class OtherProgram {
public:
    explicit OtherProgram(const SampleDatabase& database) {
        const std::wstring name = L"vndesk.held." + std::to_wstring(GetCurrentProcessId());
        event_ = CreateEventW(nullptr, TRUE, FALSE, name.c_str());
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        std::wstring tool = path;
        tool.replace(tool.rfind(L'\\') + 1, std::wstring::npos, L"vnhold.exe");
        program_ = std::make_unique<ChildProcess>(
            std::vector<std::wstring>{tool, database.OdbcString(), L"begin exclusive", name});
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(event_, 30000));
    }
    ~OtherProgram() {
        ResetEvent(event_);
        EXPECT_EQ(0u, program_->ExitCode(30000));
        CloseHandle(event_);
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

private:
    HANDLE event_;
    std::unique_ptr<ChildProcess> program_;
};

void WriteAt(const std::wstring& file, long place, char byte) {
    FILE* opened = _wfopen(file.c_str(), L"r+b");
    ASSERT_TRUE(opened);
    fseek(opened, place, SEEK_SET);
    EXPECT_EQ(1u, fwrite(&byte, 1, 1, opened));
    fclose(opened);
}

// SQLite only reads a file whose header names a later version for writing, whoever asks.
void MakeReadOnly(const std::wstring& file) {
    WriteAt(file, 18, 3);
}

void CutShort(const std::wstring& file) {
    const HANDLE opened =
        CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, opened);
    SetFilePointer(opened, 9000, nullptr, FILE_BEGIN);
    EXPECT_TRUE(SetEndOfFile(opened));
    CloseHandle(opened);
}

void Remove(const std::wstring& file) {
    EXPECT_TRUE(DeleteFileW(file.c_str()));
}

// The journal, which comes before every change of the file, is the machine's device that is always
// full; SQLite takes it away when it gives the change up. False where only root may make devices.
bool FillDisk(const std::wstring& file) {
    const std::wstring journal = file + L"-journal";
    ChildProcess mknod(
        {L"start.exe", L"/wait", L"/unix", L"/bin/mknod", DriverPath(journal), L"c", L"1", L"7"});
    mknod.ExitCode(30000);
    return WaitUntil([&] {
        const HANDLE device = CreateFileW(journal.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, 0, nullptr);
        if (device == INVALID_HANDLE_VALUE)
            return false;
        CloseHandle(device);
        return true;
    });
}

struct Harm {
    const char* name;
    void (*act)(const std::wstring& file);
    bool beforeTheCall; // what an opened file does not notice
};

constexpr Harm kHarms[] = {
    {"ReadOnly", MakeReadOnly, true}, {"CutShort", CutShort, false}, {"Gone", Remove, false}};

class EmbeddedFailures : public testing::TestWithParam<Use> {
protected:
    EmbeddedFailures() {
        well_ = Play(GetParam(), database_.Sample());
        EXPECT_EQ(GetParam().answer, well_.answer);
        database_.Restore();
    }

    const KeptDatabase database_;
    Played well_;
};

TEST_P(EmbeddedFailures, AreToldAndLeaveTheFileAsItWas) {
    for (const Harm& harm : kHarms) {
        SCOPED_TRACE(harm.name);
        std::string harmed;
        const auto act = [&] {
            harm.act(database_.File());
            harmed = Bytes(database_.File());
        };
        if (harm.beforeTheCall)
            act();
        const Played played = Play(GetParam(), database_.Sample(),
                                   harm.beforeTheCall ? std::function<void()>() : act);
        ExpectTold(GetParam(), well_, played);
        EXPECT_TRUE(Bytes(database_.File()) == harmed);
        database_.Restore();
        EXPECT_EQ(database_.Before(), database_.Now());
    }
}

class FullDisk : public EmbeddedFailures {};

TEST_P(FullDisk, IsToldAndLeavesTheFileAsItWas) {
    bool full = false;
    const Played played =
        Play(GetParam(), database_.Sample(), [&] { full = FillDisk(database_.File()); });
    if (!full)
        GTEST_SKIP() << "the device that is always full cannot be made here: only root can";
    ExpectTold(GetParam(), well_, played);
    EXPECT_TRUE(Bytes(database_.File()) == Bytes(database_.Kept()));
}

// The driver waits for a while before it says that the file is locked; here only for a moment.
TEST_P(EmbeddedFailures, LockByAnotherProgramIsToldAndChangesNothing) {
    const std::wstring connection = L"Provider=MSDASQL;Timeout=20;Extended Properties=\"" +
                                    database_.Sample().OdbcString() + L"\";Mode=Jet OLEDB";
    ASSERT_EQ(DatabaseKind::Jet, KindOf(connection));
    std::unique_ptr<OtherProgram> other;
    const Played played = Play(
        GetParam(), database_.Sample(),
        [&] { other = std::make_unique<OtherProgram>(database_.Sample()); }, connection);
    other.reset();
    ExpectTold(GetParam(), well_, played);
    EXPECT_EQ(database_.Before(), database_.Now());
}

std::vector<Use> UsesThatWrite() {
    std::vector<Use> uses = AllUses();
    std::erase_if(uses, [](const Use& use) { return !use.probe; });
    uses.insert(uses.end(), RecordedUses().begin(), RecordedUses().end());
    return uses;
}

INSTANTIATE_TEST_SUITE_P(Uses, FullDisk, testing::ValuesIn(UsesThatWrite()),
                         [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(Uses, EmbeddedFailures, testing::ValuesIn(AllUses()),
                         [](const auto& info) { return std::string(info.param.name); });
INSTANTIATE_TEST_SUITE_P(RecordedUses, EmbeddedFailures, testing::ValuesIn(RecordedUses()),
                         [](const auto& info) { return std::string(info.param.name); });

// --- The server ---

// The runner's server, which can be taken away (scripts/with-postgres).
class Server {
public:
    static void Kill() {
        ServerControl().Give("kill");
        EXPECT_TRUE(WaitUntil([] { return !Answers(); }, 30000));
    }
    static void Start() {
        ServerControl().Give("start");
        EXPECT_TRUE(WaitUntil(Answers, 60000));
    }

private:
    static bool Answers() {
        try {
            OdbcSession session(PostgresConnection());
            return true;
        } catch (const std::exception&) {
            return false;
        }
    }
};

class ServerFailures : public testing::TestWithParam<Use> {
protected:
    void SetUp() override {
        if (!SampleDatabase::ServerAvailable() || !ServerControl::Available())
            GTEST_SKIP()
                << "no PostgreSQL server that may be killed: VNDESK_SERVER_CONTROL is not set";
    }
};

TEST_P(ServerFailures, AreToldAndLeaveTheTablesAsTheyWere) {
    const SampleDatabase database = SampleDatabase::Server();
    MakeSmall(database);
    const std::wstring before = Contents(database);
    const SampleDatabase elsewhere = SampleDatabase::Embedded();
    MakeSmall(elsewhere);
    const Played well = Play(GetParam(), elsewhere);
    // The other half of the uses is for a run that tries everything.
    static bool away = false;
    away = !away;
    for (const bool comesBack : {false, true}) {
        if (comesBack == away && !FullRun())
            continue;
        SCOPED_TRACE(comesBack ? "killed and started again" : "killed and away");
        const Played played = Play(GetParam(), database, [&] {
            Server::Kill();
            if (comesBack)
                Server::Start();
        });
        if (!comesBack)
            Server::Start();
        // A use that has no form yet meets the server that is back, and writes.
        if (!comesBack || !GetParam().steps.empty()) {
            ExpectTold(GetParam(), well, played);
            EXPECT_EQ(before, Contents(database));
        }
    }
}

std::vector<Use> UsesOfTheServer() {
    std::vector<Use> uses;
    for (const Use& use : AllUses())
        if (FullRun() || use.probe || std::string_view(use.name) == "Logon")
            uses.push_back(use);
    return uses;
}

INSTANTIATE_TEST_SUITE_P(Uses, ServerFailures, testing::ValuesIn(UsesOfTheServer()),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace vndesk::test
