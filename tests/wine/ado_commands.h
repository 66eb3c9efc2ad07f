// SPDX-License-Identifier: MIT
// Short ways to make commands with parameters and to run them.
#pragma once

#include "wine/ado_fixture.h"

namespace vndesk::test {

constexpr HRESULT kWrongType = static_cast<HRESULT>(0x800A0D5DL);
constexpr HRESULT kImproperlyDefined = static_cast<HRESULT>(0x800A0E7CL);

struct Given {
    DataTypeEnum type;
    _variant_t value;
    long size = 0; // 0: as long as a text needs
};

ComPtr<_Command> NewCommand(_Connection* connection, const std::wstring& text,
                            const std::vector<Given>& given = {});
ComPtr<_Parameter> NewParameter(DataTypeEnum type, const _variant_t& value, long size = 0,
                                const wchar_t* name = L"");
HRESULT TryAppend(_Command* command, _Parameter* parameter);
ComPtr<Parameters> ParametersOf(_Command* command);

// Fail the test by an exception, except those that return HRESULT.
ComPtr<_Recordset> RowsOf(_Command* command);
HRESULT TryRun(_Command* command, const _variant_t& values = Missing());
long Changed(_Command* command);
_variant_t ScalarOf(_Command* command, const _variant_t& values = Missing());
// The same for a command made on the spot.
_variant_t Asked(_Connection* connection, const std::wstring& text,
                 const std::vector<Given>& given);
long Written(_Connection* connection, const std::wstring& text, const std::vector<Given>& given);
HRESULT TryWrite(_Connection* connection, const std::wstring& text,
                 const std::vector<Given>& given);

_variant_t ArrayOf(const std::vector<_variant_t>& values);
_variant_t BytesOf(const std::string& bytes);
_variant_t NullValue();
_variant_t TextValue(const std::wstring& text); // zero characters included

} // namespace vndesk::test
