// SPDX-License-Identifier: MIT
// Random texts written as literals and read back from the engines: they come as they were, except
// that double quotes are stored doubled.
#include "data/data_fixture.h"

#include <vector>

#include "data/text/literals.h"
#include "support/random.h"

namespace vndesk::test {
namespace {

constexpr int kStatements = 25;
constexpr int kTextsEach = 12;

std::wstring Stored(const std::wstring& text) {
    std::wstring stored;
    for (const wchar_t ch : text)
        stored.append(ch == L'"' ? 2 : 1, ch);
    return stored;
}

class LiteralProperty : public DataTest {
protected:
    // The fields of the only row.
    std::vector<std::wstring> Row(const std::wstring& statement, std::size_t count) const {
        Recordset rows;
        rows.Create(Db());
        rows.Open(statement);
        std::vector<std::wstring> fields;
        for (std::size_t i = 0; i < count; ++i)
            fields.emplace_back(
                static_cast<const wchar_t*>(_bstr_t(rows.Value(static_cast<long>(i)))));
        return fields;
    }
};

TEST_P(LiteralProperty, EveryTextComesBackFromTheEngine) {
    Random random;
    for (int i = 0; i < kStatements; ++i) {
        std::wstring statement = L"Select ";
        std::vector<std::wstring> wanted;
        for (int j = 0; j < kTextsEach; ++j) {
            const std::wstring text = random.Text();
            statement +=
                (j ? L"," : L"") + Literal(text, L"S", Kind()) + L" As t" + std::to_wstring(j);
            wanted.push_back(Stored(text));
        }
        ASSERT_EQ(wanted, Row(statement, wanted.size())) << ToUtf8(statement);
    }
}

TEST_P(LiteralProperty, EveryTextIsFoundByTheConditionMadeOfIt) {
    Random random;
    for (int i = 0; i < kStatements; ++i) {
        const std::wstring text = random.Text();
        ASSERT_EQ(L"1", Value(L"Select Count(*) From (Select " + Literal(text, L"S", Kind()) +
                              L" As t) q Where t=" + Literal(text, L"S", Kind())))
            << ToUtf8(text);
    }
}

ON_BOTH_ENGINES(LiteralProperty);

} // namespace
} // namespace vndesk::test
