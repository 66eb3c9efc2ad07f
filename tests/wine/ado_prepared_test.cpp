// SPDX-License-Identifier: MIT
// Commands that stay prepared from one run to the next, and the keys of the catalogue.
#include "wine/ado_commands.h"

#include "support/text.h"

namespace {

using namespace vndesk::test;

std::wstring Number(_Recordset* rows, const _variant_t& column) {
    return std::to_wstring(static_cast<long>(ValueAt(rows, column)));
}

class AdoPrepared : public EachEngineTest {
protected:
    void SetUp() override {
        EachEngineTest::SetUp();
        if (Db())
            Execute(Db(), L"Create Table t(a integer primary key, b varchar(30))");
    }
    ComPtr<_Command> Prepared(const std::wstring& text, const std::vector<Given>& given) const {
        const auto command = NewCommand(Db(), text, given);
        EXPECT_SUCCEEDED(command->put_Prepared(VARIANT_TRUE));
        return command;
    }
    ComPtr<_Command> Insert() const {
        return Prepared(L"Insert Into [t]([a],[b]) Values(?,?)",
                        {{adInteger, 1l}, {adVarWChar, L"một", 30}});
    }
    static HRESULT RunWith(_Command* command, const std::vector<_variant_t>& values) {
        return TryRun(command, ArrayOf(values));
    }
    std::wstring Rows() const {
        std::wstring rows;
        const auto all = OpenRecordset(Db(), L"Select a,b From t Order By a");
        for (; !IsEof(all.Get()); all->MoveNext()) {
            const _variant_t b = ValueAt(all.Get(), 1l);
            rows += Number(all.Get(), 0l) + L"=" + (b.vt == VT_NULL ? L"?" : b.bstrVal) + L" ";
        }
        return rows;
    }
};
INSTANTIATE_EACH_ENGINE(AdoPrepared);

TEST_P(AdoPrepared, RunsAgainWithOtherValues) {
    const auto insert = Insert();
    const std::wstring texts[] = {L"hai mươi mốt", L"", L"b'\"?`"};
    EXPECT_EQ(1, Changed(insert.Get()));
    for (long i = 0; i < 3; ++i)
        EXPECT_SUCCEEDED(RunWith(insert.Get(), {i + 2, TextValue(texts[i])}));
    EXPECT_SUCCEEDED(RunWith(insert.Get(), {5l, NullValue()}));
    EXPECT_EQ(L"1=một 2=hai mươi mốt 3= 4=b'\"?` 5=? ", Rows());
    const auto update =
        Prepared(L"Update [t] Set [b]=? Where [a]>?", {{adVarWChar, L"x", 30}, {adInteger, 3l}});
    EXPECT_EQ(2, Changed(update.Get()));
    EXPECT_SUCCEEDED(RunWith(insert.Get(), {6l, L"sáu"})) << "another one in between";
    EXPECT_EQ(3, Changed(update.Get()));
    EXPECT_EQ(L"1=một 2=hai mươi mốt 3= 4=x 5=x 6=x ", Rows());
}

TEST_P(AdoPrepared, WorksOnAfterAFailureAndInTransactions) {
    const auto insert = Insert();
    EXPECT_EQ(1, Changed(insert.Get()));
    ExpectError(kIntegrityViolation, L"", TryRun(insert.Get()));
    EXPECT_SUCCEEDED(RunWith(insert.Get(), {2l, L"hai"}));
    long level = 0;
    ASSERT_SUCCEEDED(Db()->BeginTrans(&level));
    EXPECT_SUCCEEDED(RunWith(insert.Get(), {3l, L"ba"}));
    ASSERT_SUCCEEDED(Db()->RollbackTrans());
    ASSERT_SUCCEEDED(Db()->BeginTrans(&level));
    EXPECT_SUCCEEDED(RunWith(insert.Get(), {4l, L"bốn"}));
    ASSERT_SUCCEEDED(Db()->CommitTrans());
    EXPECT_EQ(L"1=một 2=hai 4=bốn ", Rows());
    // Nothing of it holds the table.
    Execute(Db(), L"Drop Table t");
    EXPECT_TRUE(FAILED(RunWith(insert.Get(), {5l, L"năm"})));
    Execute(Db(), L"Create Table t(a integer, b varchar(30))");
    EXPECT_SUCCEEDED(RunWith(insert.Get(), {5l, L"năm"}));
    EXPECT_EQ(L"5=năm ", Rows());
}

// A value that is left out must not be the last run's.
TEST_P(AdoPrepared, DoesNotRememberValues) {
    const std::wstring text = L"Insert Into [t]([a],[b]) Values(?,?)";
    EXPECT_EQ(1, Changed(Prepared(text, {{adInteger, 1l}, {adVarWChar, L"một", 30}}).Get()));
    EXPECT_TRUE(FAILED(TryRun(Prepared(text, {{adInteger, 2l}}).Get())));
    EXPECT_EQ(1, Changed(Prepared(text, {{adInteger, 3l}, {adVarWChar, L"ba", 30}}).Get()));
    EXPECT_EQ(L"1=một 3=ba ", Rows());
}

TEST_P(AdoPrepared, GivesRows) {
    const auto insert = Insert();
    EXPECT_EQ(1, Changed(insert.Get()));
    const auto select = Prepared(L"Select [b] From [t] Where [a]=?", {{adInteger, 1l}});
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(_variant_t(L"một"), ScalarOf(select.Get()));
    EXPECT_EQ(1, Changed(Prepared(L"Delete From [t] Where [a]=?", {{adInteger, 1l}}).Get()));
    EXPECT_EQ(L"", Rows());
}

class AdoSchema : public EachEngineTest {
protected:
    static _variant_t Restrictions(const wchar_t* table) {
        return ArrayOf({_variant_t(), _variant_t(), _variant_t(table)});
    }
    std::wstring Keys(const wchar_t* table) const {
        ComPtr<_Recordset> rows;
        EXPECT_SUCCEEDED(
            Db()->OpenSchema(adSchemaPrimaryKeys, Restrictions(table), Missing(), &rows));
        std::wstring keys;
        for (; rows && !IsEof(rows.Get()); rows->MoveNext())
            keys += TextAt(rows.Get(), L"TABLE_NAME") + L"." + TextAt(rows.Get(), L"COLUMN_NAME") +
                    L" " + Number(rows.Get(), L"ORDINAL") + L"; ";
        return keys;
    }
};
INSTANTIATE_EACH_ENGINE(AdoSchema);

TEST_P(AdoSchema, TellsThePrimaryKey) {
    Execute(Db(), L"Create Table one(a integer primary key, b varchar(30))");
    Execute(Db(), L"Create Table two(a varchar(9), \"B đ\" integer, c integer, "
                  L"primary key(\"B đ\", a))");
    Execute(Db(), L"Create Table none(a integer)");
    Execute(Db(), L"Create Table \"Hai từ?\"(\"x\"\"]\" integer primary key)");
    EXPECT_EQ(L"one.a 1; ", Keys(L"one"));
    // SQLite's driver tells them in the order of the table.
    EXPECT_EQ(OnServer() ? L"two.B đ 1; two.a 2; " : L"two.a 1; two.B đ 2; ", Keys(L"two"));
    EXPECT_EQ(L"", Keys(L"none"));
    EXPECT_EQ(L"", Keys(L"not there"));
    EXPECT_EQ(L"Hai từ?.x\"] 1; ", Keys(L"Hai từ?"));
}

TEST_P(AdoSchema, RefusesWhatItDoesNotHave) {
    ComPtr<_Recordset> rows;
    ExpectError(E_NOTIMPL, L"ADODB.Connection.OpenSchema",
                Db()->OpenSchema(adSchemaTables, Missing(), Missing(), &rows));
    ExpectError(kInvalidArgument, L"",
                Db()->OpenSchema(adSchemaPrimaryKeys, Missing(), Missing(), &rows));
    ExpectError(kInvalidArgument, L"",
                Db()->OpenSchema(adSchemaPrimaryKeys,
                                 ArrayOf({_variant_t(), _variant_t(), _variant_t(5l)}), Missing(),
                                 &rows));
    EXPECT_EQ(E_POINTER,
              Db()->OpenSchema(adSchemaPrimaryKeys, Restrictions(L"t"), Missing(), nullptr));
    const auto closed = NewConnection();
    ExpectError(kObjectClosed, L"",
                closed->OpenSchema(adSchemaPrimaryKeys, Restrictions(L"t"), Missing(), &rows));
}

} // namespace
