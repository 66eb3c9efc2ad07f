// SPDX-License-Identifier: MIT
// The parameters of commands: their list, what they keep, what they refuse.
#include "wine/ado_commands.h"

#include "support/new_object.h"

namespace {

using namespace vndesk::test;

constexpr HRESULT kInCollection = static_cast<HRESULT>(0x800A0D27L);

class AdoParameters : public EmbeddedTest {
protected:
    static long CountOf(Parameters* parameters) {
        LONG count = -77;
        EXPECT_SUCCEEDED(parameters->get_Count(&count));
        return count;
    }
    static std::wstring NameAt(Parameters* parameters, const _variant_t& index) {
        ComPtr<_Parameter> parameter;
        _bstr_t name;
        EXPECT_SUCCEEDED(parameters->get_Item(index, &parameter));
        if (parameter)
            parameter->get_Name(name.GetAddress());
        return name.length() ? std::wstring(name) : L"";
    }
};

TEST_F(AdoParameters, AreAppendedFoundAndDeleted) {
    const auto command = NewCommand(Db(), L"Select ?");
    const auto list = ParametersOf(command.Get());
    EXPECT_EQ(0, CountOf(list.Get()));
    const auto first = NewParameter(adInteger, 1l, 0, L"Mã");
    const auto second = NewParameter(adVarWChar, L"x", 0, L"Tên");
    ASSERT_SUCCEEDED(list->Append(first.Get()));
    ASSERT_SUCCEEDED(list->Append(second.Get()));
    EXPECT_EQ(2, CountOf(ParametersOf(command.Get()).Get())) << "one list";
    EXPECT_EQ(L"Tên", NameAt(list.Get(), 1l));
    EXPECT_EQ(L"Mã", NameAt(list.Get(), L"MÃ"));
    ComPtr<_Parameter> found;
    ASSERT_SUCCEEDED(list->get_Item(_variant_t(L"tên"), &found));
    EXPECT_EQ(second.Get(), found.Get()) << "the very object that was appended";
    for (const _variant_t& index : {_variant_t(2l), _variant_t(-1l), _variant_t(L"no")}) {
        ExpectError(kItemNotFound, L"cannot be found", list->get_Item(index, &found));
        EXPECT_FALSE(found);
        ExpectError(kItemNotFound, L"cannot be found", list->Delete(index));
    }
    ExpectError(kInCollection, L"already in collection", list->Append(first.Get()));
    const auto other = NewCommand(Db(), L"Select ?");
    ExpectError(kInCollection, L"already in collection", TryAppend(other.Get(), first.Get()));
    ExpectError(kInvalidArgument, L"", list->Append(nullptr));
    ExpectError(kInvalidArgument, L"", list->Append(Db()));
    ASSERT_SUCCEEDED(list->Delete(_variant_t(L"MÃ")));
    EXPECT_EQ(1, CountOf(list.Get()));
    EXPECT_SUCCEEDED(TryAppend(other.Get(), first.Get()));
    ExpectError(E_NOTIMPL, L"Refresh", list->Refresh());
}

TEST_F(AdoParameters, AreFreeWhenTheirCommandIsGone) {
    const auto parameter = NewParameter(adInteger, 1l);
    auto command = NewCommand(Db(), L"Select ?");
    const auto list = ParametersOf(command.Get());
    ASSERT_SUCCEEDED(list->Append(parameter.Get()));
    command.Reset();
    EXPECT_EQ(1, CountOf(list.Get())) << "who holds the list keeps it";
    const_cast<ComPtr<Parameters>&>(list).Reset();
    command = NewCommand(Db(), L"Select ?");
    EXPECT_SUCCEEDED(TryAppend(command.Get(), parameter.Get()));
    EXPECT_EQ(_variant_t(1l), ScalarOf(command.Get()));
}

TEST_F(AdoParameters, MustBeDefined) {
    const auto command = NewCommand(Db(), L"Select ?");
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    ExpectError(kImproperlyDefined, L"improperly defined",
                TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Type(adVarWChar));
    ExpectError(kImproperlyDefined, L"improperly defined",
                TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Size(5));
    ASSERT_SUCCEEDED(TryAppend(command.Get(), parameter.Get()));
    ASSERT_SUCCEEDED(parameter->put_Type(adEmpty));
    ExpectError(kImproperlyDefined, L"improperly defined", TryRun(command.Get()));
    for (const long type : {12345l, static_cast<long>(adIDispatch), -1l})
        ExpectError(kInvalidArgument, L"", parameter->put_Type(static_cast<DataTypeEnum>(type)));
    ASSERT_SUCCEEDED(parameter->put_Type(adVarWChar));
    ExpectError(kInvalidArgument, L"",
                parameter->put_Direction(static_cast<ParameterDirectionEnum>(9)));
    ASSERT_SUCCEEDED(parameter->put_Direction(adParamOutput));
    ExpectError(E_NOTIMPL, L"return values", TryRun(command.Get()));
    ExpectError(E_NOTIMPL, L"AppendChunk", parameter->AppendChunk(_variant_t(L"x")));
}

TEST_F(AdoParameters, KeepWhatTheyAreTold) {
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    ASSERT_SUCCEEDED(parameter->put_Name(_bstr_t(L"Tên")));
    ASSERT_SUCCEEDED(parameter->put_Type(adNumeric));
    ASSERT_SUCCEEDED(parameter->put_Size(9));
    ASSERT_SUCCEEDED(parameter->put_Precision(18));
    ASSERT_SUCCEEDED(parameter->put_NumericScale(4));
    ASSERT_SUCCEEDED(parameter->put_Attributes(64));
    ASSERT_SUCCEEDED(parameter->put_Value(_variant_t(L"12")));
    DataTypeEnum type = adEmpty;
    ParameterDirectionEnum direction = adParamUnknown;
    ADO_LONGPTR size = 0;
    unsigned char precision = 0, scale = 0;
    LONG attributes = 0;
    _variant_t value;
    parameter->get_Type(&type);
    parameter->get_Direction(&direction);
    parameter->get_Size(&size);
    parameter->get_Precision(&precision);
    parameter->get_NumericScale(&scale);
    parameter->get_Attributes(&attributes);
    parameter->get_Value(&value);
    EXPECT_EQ(adNumeric, type);
    EXPECT_EQ(adParamInput, direction);
    EXPECT_EQ(9, size);
    EXPECT_EQ(18, precision);
    EXPECT_EQ(4, scale);
    EXPECT_EQ(64, attributes);
    EXPECT_EQ(_variant_t(L"12"), value) << "as it was given";
}

TEST_F(AdoParameters, AreSafeFromBadVariants) {
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    VARIANT bad = {};
    const auto refuses = [&](VARTYPE type) {
        V_VT(&bad) = type;
        EXPECT_FAILED(parameter->put_Value(bad)) << type;
        ErrorText();
    };
    parameter->put_Type(adInteger);
    for (const VARTYPE type :
         {VARTYPE(VT_BYREF | VT_VARIANT), VARTYPE(VT_BYREF | VT_I4), VARTYPE(VT_BYREF | VT_BSTR),
          VARTYPE(VT_DISPATCH), VARTYPE(VT_UNKNOWN), VARTYPE(VT_ERROR), VARTYPE(VT_ARRAY | VT_UI1),
          VARTYPE(VT_ARRAY | VT_VARIANT), VARTYPE(VT_BSTR), VARTYPE(0x1234)})
        refuses(type);
    V_BYREF(&bad) = &bad; // in a circle
    refuses(VT_BYREF | VT_VARIANT);
    parameter->put_Type(adVarBinary);
    bad = {};
    refuses(VT_ARRAY | VT_UI1);
    refuses(VT_BSTR);
    refuses(VT_I4);
    _variant_t number(7l), reference, deeper;
    V_VT(&reference) = VT_BYREF | VT_I4;
    V_I4REF(&reference) = &V_I4(&number);
    VARIANT through = {};
    V_VT(&through) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&through) = &reference;
    parameter->put_Type(adInteger);
    ASSERT_SUCCEEDED(parameter->put_Value(through));
    V_I4(&number) = 8;
    ASSERT_SUCCEEDED(parameter->get_Value(&deeper));
    EXPECT_EQ(_variant_t(7l), deeper) << "its own copy";
}

TEST_F(AdoParameters, TakeTheDefaultValueOfObjects) {
    const auto parameter = NewObject<_Parameter>(L"ADODB.Parameter");
    parameter->put_Type(adInteger);
    const auto rows = Execute(Db(), L"Select 41+1 As n");
    const _variant_t field(static_cast<IDispatch*>(FieldAt(rows.Get(), L"n").Get()));
    ASSERT_SUCCEEDED(parameter->put_Value(field));
    _variant_t value;
    parameter->get_Value(&value);
    EXPECT_EQ(_variant_t(42l), value);
    const auto command = NewCommand(Db(), L"Select ?");
    EXPECT_EQ(_variant_t(42l), ScalarOf(command.Get(), ArrayOf({field})));
    ExpectError(kWrongType, L"",
                parameter->put_Value(_variant_t(static_cast<IDispatch*>(rows.Get()))));
}

} // namespace
