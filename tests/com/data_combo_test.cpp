// SPDX-License-Identifier: MIT
// The control DataCombo1 without a window of a container: members from scripts and by name,
// notifications, storing, what containers ask before they show it.
#include <functional>
#include <gtest/gtest.h>
#include <objsafe.h>
#include <olectl.h>

#include "com/new_data_combo.h"
#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/control_container.h"
#include "support/late_bound.h"
#include "support/property_bag.h"
#include "support/script_host.h"
#include "support/text.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

constexpr long kWindowColor = static_cast<long>(0x80000005);
constexpr long kWindowTextColor = static_cast<long>(0x80000008);

using Lines = std::vector<std::wstring>;

Lines Play(const std::wstring& source) {
    ScriptRunner script;
    script.RunOk(L"Set c = WScript.CreateObject(\"VnDesk.DataCombo1\")\n"
                 L"Sub Add(text, value)\nc.AddItem text\nc.ItemData(c.NewIndex) = value\nEnd Sub\n"
                 L"Add \"Họ tên\", \"FullName\"\nAdd \"Ngày sinh\", \"BirthDay\"\n"
                 L"Add \"Địa chỉ\", \"Address\"\n" +
                 source);
    return script.Lines();
}

// --- from scripts ---

TEST(DataComboScriptTest, ItemsCarryTextAndHiddenValue) {
    EXPECT_EQ((Lines{L"Ngày sinh BirthDay 3 2", L"Họ tên FullName", L"Ngày sinh BirthDay",
                     L"Địa chỉ Address"}),
              Play(L"c.ListIndex = 1\nEcho c.Text, c.Value, c.ListCount, c.NewIndex\n"
                   L"For i = 0 To c.ListCount - 1\nEcho c.List(i), c.ItemData(i)\nNext"));
}

TEST(DataComboScriptTest, ValueWithoutASelectionIsEmpty) {
    EXPECT_EQ(Lines{L"[] [] -1"},
              Play(L"Echo \"[\" & c.Value & \"]\", \"[\" & c.Text & \"]\", c.ListIndex"));
}

TEST(DataComboScriptTest, SettingValueSelectsTheMatchingItem) {
    EXPECT_EQ((Lines{L"2 2 Địa chỉ", L"1 1 Ngày sinh"}),
              Play(L"c.Value = \"Address\"\nEcho c.ListIndex, c.ListIndex1, c.Text\n"
                   L"v = \"BirthDay\"\nc.Value = v\nEcho c.ListIndex, c.ListIndex1, c.Text"));
}

TEST(DataComboScriptTest, ValueThatNoItemCarriesIsNoError) {
    EXPECT_EQ(Lines{L"-1 []"}, Play(L"c.ListIndex = 1\nc.Value = \"NoSuchField\"\n"
                                    L"Echo c.ListIndex, \"[\" & c.Value & \"]\""));
}

TEST(DataComboScriptTest, RemovingMinusOneChangesNothing) {
    EXPECT_EQ((Lines{L"3 BirthDay", L"2 BirthDay BirthDay"}),
              Play(L"c.ListIndex = 1\nc.RemoveItem -1\nEcho c.ListCount, c.Value\n"
                   L"c.RemoveItem 0\nEcho c.ListCount, c.Value, c.ItemData(0)"));
}

TEST(DataComboScriptTest, ItemWithoutDataHasTheEmptyValue) {
    EXPECT_EQ(Lines{L"Mới []"}, Play(L"c.AddItem \"Mới\"\nc.ListIndex = c.NewIndex\n"
                                     L"Echo c.Text, \"[\" & c.Value & \"]\""));
}

TEST(DataComboScriptTest, PlaceOfANewItemMayBeGiven) {
    EXPECT_EQ(Lines{L"Mã= Họ tên=FullName Tuổi= Ngày sinh=BirthDay Địa chỉ=Address Quê= FullName"},
              Play(L"c.ListIndex = 0\nc.AddItem \"Mã\", 0\np = 2\nc.AddItem \"Tuổi\", p\n"
                   L"c.AddItem \"Quê\", \"5\"\n"
                   L"For i = 0 To 5\nl = l & c.List(i) & \"=\" & c.ItemData(i) & \" \"\nNext\n"
                   L"Echo l & c.Value"));
}

TEST(DataComboScriptTest, TextsAreReplacedAndCleared) {
    EXPECT_EQ((Lines{L"BirthDay", L"0 -1 []"}),
              Play(L"c.List(1) = \"Sinh nhật\"\nc.Text = \"Sinh nhật\"\nEcho c.Value\n"
                   L"c.Clear\nEcho c.ListCount, c.NewIndex, \"[\" & c.List(0) & \"]\""));
}

TEST(DataComboScriptTest, WrongIndexesAreBasicsErrors) {
    EXPECT_EQ(
        (Lines{L"380 Invalid property value VnDesk.DataCombo1", L"381 Invalid property array index",
               L"381", L"5", L"13", L"5", L"430", L"3 -1"}),
        Play(L"On Error Resume Next\n"
             L"c.ListIndex = 3\nEcho Err.Number, Err.Description, Err.Source\nErr.Clear\n"
             L"c.List(3) = \"x\"\nEcho Err.Number, Err.Description\nErr.Clear\n"
             L"c.ItemData(-1) = \"x\"\nEcho Err.Number\nErr.Clear\n"
             L"c.AddItem \"x\", 9\nEcho Err.Number\nErr.Clear\n"
             L"c.AddItem \"x\", \"không\"\nEcho Err.Number\nErr.Clear\n"
             L"c.RemoveItem 3\nEcho Err.Number\nErr.Clear\n"
             L"Set c.Font = c\nEcho Err.Number\nErr.Clear\n"
             L"Echo c.ListCount, c.ListIndex"));
}

TEST(DataComboScriptTest, AppearanceIsSetAndReadBack) {
    EXPECT_EQ(
        (Lines{L"80000005 255 False 1 -1", L"True True"}),
        Play(L"c.BackColor = &H80000005\nc.ForeColor = RGB(255, 0, 0)\nc.Enabled = False\n"
             L"c.BackStyle = 1\nc.BorderStyle = -1\nc.Refresh\n"
             L"Echo Hex(c.BackColor), c.ForeColor, c.Enabled, c.BackStyle, c.BorderStyle\n"
             L"c.Font.Underline = True\nc.Font.Bold = True\nEcho c.Font.Underline, c.Font.Bold"));
}

// --- early bound ---

std::wstring Get(IDataCombo1* combo, HRESULT (STDMETHODCALLTYPE IDataCombo1::*get)(BSTR*)) {
    _bstr_t text;
    EXPECT_SUCCEEDED((combo->*get)(text.GetAddress()));
    return {static_cast<const wchar_t*>(text) ? static_cast<const wchar_t*>(text) : L"",
            text.length()};
}

template <class Value>
Value Get(IDataCombo1* combo, HRESULT (STDMETHODCALLTYPE IDataCombo1::*get)(Value*)) {
    Value value = {};
    EXPECT_SUCCEEDED((combo->*get)(&value));
    return value;
}

void AddItem(IDataCombo1* combo, const wchar_t* text, const wchar_t* value) {
    VARIANT missing = {};
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_SUCCEEDED(combo->AddItem(_bstr_t(text), missing));
    EXPECT_SUCCEEDED(combo->put_ItemData(Get(combo, &IDataCombo1::get_NewIndex), _bstr_t(value)));
}

long Height(const ComPtr<IDataCombo1>& combo) {
    SIZEL size = {};
    EXPECT_SUCCEEDED(As<IOleObject>(combo)->GetExtent(DVASPECT_CONTENT, &size));
    return size.cy;
}

// The platform may put another face and size for those asked for: fonts are told apart by marks.
enum class Mark { None, Underlined, Struck };

Mark MarkOf(IDataCombo1* combo) {
    ComPtr<IFontDisp> font;
    ComPtr<IFont> asked;
    BOOL underlined = FALSE, struck = FALSE;
    EXPECT_SUCCEEDED(combo->get_Font(&font));
    EXPECT_SUCCEEDED(font.As(&asked));
    EXPECT_SUCCEEDED(asked->get_Underline(&underlined));
    EXPECT_SUCCEEDED(asked->get_Strikethrough(&struck));
    return underlined ? Mark::Underlined : struck ? Mark::Struck : Mark::None;
}

_variant_t MakeFont(Mark mark, int points) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(L"Arial");
    description.fUnderline = mark == Mark::Underlined;
    description.fStrikethrough = mark == Mark::Struck;
    description.cySize.int64 = points * 10000LL;
    description.sWeight = FW_NORMAL;
    ComPtr<IFontDisp> font;
    EXPECT_SUCCEEDED(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    return _variant_t(static_cast<IDispatch*>(font.Get()));
}

// --- notifications ---

// On the stack; must be disconnected before its end.
class ChangeSink final : public IPropertyNotifySink {
public:
    explicit ChangeSink(const ComPtr<IDataCombo1>& combo) {
        EXPECT_SUCCEEDED(As<IConnectionPointContainer>(combo)->FindConnectionPoint(
            IID_IPropertyNotifySink, &point_));
        EXPECT_SUCCEEDED(point_->Advise(this, &cookie_));
    }
    ~ChangeSink() { EXPECT_SUCCEEDED(point_->Unadvise(cookie_)); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IPropertyNotifySink;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP OnChanged(DISPID property) override {
        changed.push_back(property);
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID property) override {
        asked.push_back(property);
        return answer;
    }

    HRESULT answer = S_OK;
    std::vector<DISPID> changed, asked;

private:
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

TEST(DataComboTest, EachLetAsksAndTellsOfItsProperty) {
    const auto combo = Create();
    AddItem(combo.Get(), L"Mã", L"Code");
    const _variant_t font = MakeFont(Mark::None, 10);
    const auto fontObject = static_cast<IFontDisp*>(V_DISPATCH(&font));
    const struct {
        DISPID property;
        std::function<HRESULT()> let;
    } kLets[] = {
        {DISPID_BACKCOLOR, [&] { return combo->put_BackColor(255); }},
        {DISPID_FORECOLOR, [&] { return combo->put_ForeColor(255); }},
        {DISPID_ENABLED, [&] { return combo->put_Enabled(VARIANT_FALSE); }},
        {DISPID_FONT, [&] { return combo->putref_Font(fontObject); }},
        {DISPID_FONT, [&] { return combo->put_Font(fontObject); }},
        {DISPID_BACKSTYLE, [&] { return combo->put_BackStyle(1); }},
        {DISPID_BORDERSTYLE, [&] { return combo->put_BorderStyle(1); }},
        {DISPID_LISTINDEX, [&] { return combo->put_ListIndex(0); }},
        {1, [&] { return combo->put_ListIndex1(0); }},
        {DISPID_TEXT, [&] { return combo->put_Text(_bstr_t(L"Mã")); }},
        {2, [&] { return combo->put_Value(_bstr_t(L"Code")); }},
        {3, [&] { return combo->put_ItemData(0, _bstr_t(L"Id")); }},
        {DISPID_LIST, [&] { return combo->put_List(0, _bstr_t(L"Số")); }},
    };
    const auto persist = As<IPersistStreamInit>(combo);
    for (const auto& entry : kLets) {
        EXPECT_SUCCEEDED(persist->InitNew());
        EXPECT_HR(S_FALSE, persist->IsDirty());
        ChangeSink sink(combo);
        EXPECT_HR(S_OK, entry.let()) << entry.property;
        EXPECT_EQ(std::vector<DISPID>{entry.property}, sink.asked);
        EXPECT_EQ(std::vector<DISPID>{entry.property}, sink.changed);
        EXPECT_HR(S_OK, persist->IsDirty()) << entry.property;
    }
    ChangeSink sink(combo);
    AddItem(combo.Get(), L"Tuổi", L"Age");
    EXPECT_SUCCEEDED(combo->Clear());
    EXPECT_EQ(std::vector<DISPID>{3}, sink.changed) << "adding and clearing are no lets";
}

TEST(DataComboTest, ContainerMayRefuseAChange) {
    const auto combo = Create();
    ChangeSink sink(combo);
    sink.answer = S_FALSE;
    EXPECT_HR(CTL_E_SETNOTPERMITTED, combo->put_BackColor(255));
    EXPECT_EQ(kWindowColor, Get(combo.Get(), &IDataCombo1::get_BackColor));
    EXPECT_TRUE(sink.changed.empty());
    EXPECT_HR(S_FALSE, As<IPersistStreamInit>(combo)->IsDirty());
}

TEST(DataComboTest, ValueThatTheContainerRefusesIsNoError) {
    const auto combo = Create();
    AddItem(combo.Get(), L"Tuổi", L"Age");
    ChangeSink sink(combo);
    sink.answer = S_FALSE;
    EXPECT_HR(S_OK, combo->put_Value(_bstr_t(L"Age")));
    EXPECT_EQ(-1, Get(combo.Get(), &IDataCombo1::get_ListIndex));
    EXPECT_TRUE(sink.changed.empty());
}

TEST(DataComboTest, ChangesOfTheFontObjectAreFollowedAndTold) {
    const auto combo = Create();
    const long before = Height(combo);
    const _variant_t object = MakeFont(Mark::None, 9);
    ComPtr<IFont> font;
    ASSERT_SUCCEEDED(V_DISPATCH(&object)->QueryInterface(IID_PPV_ARGS(&font)));
    EXPECT_SUCCEEDED(combo->putref_Font(static_cast<IFontDisp*>(V_DISPATCH(&object))));
    ChangeSink sink(combo);
    CY size = {};
    size.int64 = 240000;
    EXPECT_SUCCEEDED(font->put_Size(size));
    EXPECT_LT(before, Height(combo));
    EXPECT_EQ(std::vector<DISPID>{DISPID_FONT}, sink.changed);
    // A font that was replaced has no more say.
    const _variant_t other = MakeFont(Mark::None, 9);
    EXPECT_SUCCEEDED(combo->putref_Font(static_cast<IFontDisp*>(V_DISPATCH(&other))));
    sink.changed.clear();
    EXPECT_SUCCEEDED(font->put_Bold(TRUE));
    EXPECT_TRUE(sink.changed.empty());
}

// --- property bag ---

class DataComboBagTest : public testing::Test {
protected:
    void Save(bool all = false) {
        EXPECT_SUCCEEDED(As<IPersistPropertyBag>(combo_)->Save(&bag_, TRUE, all));
    }
    void Load() { EXPECT_SUCCEEDED(As<IPersistPropertyBag>(combo_)->Load(&bag_, nullptr)); }

    PropertyBag bag_;
    ComPtr<IDataCombo1> combo_ = Create();
};

TEST_F(DataComboBagTest, NewInstanceHasTheDefaults) {
    EXPECT_SUCCEEDED(As<IPersistPropertyBag>(combo_)->InitNew());
    EXPECT_EQ(kWindowColor, Get(combo_.Get(), &IDataCombo1::get_BackColor));
    EXPECT_EQ(kWindowTextColor, Get(combo_.Get(), &IDataCombo1::get_ForeColor));
    EXPECT_EQ(VARIANT_TRUE, Get(combo_.Get(), &IDataCombo1::get_Enabled));
    EXPECT_EQ(0, Get(combo_.Get(), &IDataCombo1::get_BackStyle));
    EXPECT_EQ(0, Get(combo_.Get(), &IDataCombo1::get_BorderStyle));
}

TEST_F(DataComboBagTest, WritesWhatDiffersFromTheDefaults) {
    Save();
    // The texts are empty, and their default is "Combo1".
    EXPECT_EQ((Lines{L"Text", L"Value", L"ItemData"}), bag_.written);
}

TEST_F(DataComboBagTest, WritesAllInOrderWhenAsked) {
    AddItem(combo_.Get(), L"Ngày sinh", L"BirthDay");
    EXPECT_SUCCEEDED(combo_->put_Value(_bstr_t(L"BirthDay")));
    Save(true);
    EXPECT_EQ((Lines{L"BackColor", L"ForeColor", L"Enabled", L"Font", L"BackStyle", L"BorderStyle",
                     L"Text", L"Value", L"ItemData"}),
              bag_.written);
    EXPECT_EQ(_variant_t(kWindowColor), bag_.values[L"BackColor"]);
    EXPECT_EQ(_variant_t(true), bag_.values[L"Enabled"]);
    EXPECT_EQ(VT_DISPATCH, bag_.values[L"Font"].vt);
    EXPECT_EQ(_variant_t(L"Ngày sinh"), bag_.values[L"Text"]);
    EXPECT_EQ(_variant_t(L"BirthDay"), bag_.values[L"Value"]);
    EXPECT_EQ(_variant_t(L"BirthDay"), bag_.values[L"ItemData"]);
}

TEST_F(DataComboBagTest, HiddenTextIsThatOfTheHiddenList) {
    AddItem(combo_.Get(), L"Ngày sinh", L"BirthDay");
    EXPECT_SUCCEEDED(combo_->put_ListIndex(0));
    Save();
    EXPECT_EQ(_variant_t(L"Ngày sinh"), bag_.values[L"Text"]);
    EXPECT_EQ(_variant_t(L""), bag_.values[L"Value"]) << "nothing is selected there";
}

TEST_F(DataComboBagTest, TextsThatAreTheDefaultAreLeftOut) {
    AddItem(combo_.Get(), L"Combo1", L"Combo1");
    EXPECT_SUCCEEDED(combo_->put_Value(_bstr_t(L"Combo1")));
    Save();
    EXPECT_TRUE(bag_.written.empty());
}

TEST_F(DataComboBagTest, ComesBackFromABagWithoutItems) {
    EXPECT_SUCCEEDED(combo_->put_BackColor(0x00FF00));
    EXPECT_SUCCEEDED(combo_->put_ForeColor(0x0000FF));
    EXPECT_SUCCEEDED(combo_->put_Enabled(VARIANT_FALSE));
    EXPECT_SUCCEEDED(combo_->put_BackStyle(1));
    EXPECT_SUCCEEDED(combo_->put_BorderStyle(2));
    const _variant_t font = MakeFont(Mark::Underlined, 12);
    EXPECT_SUCCEEDED(combo_->putref_Font(static_cast<IFontDisp*>(V_DISPATCH(&font))));
    AddItem(combo_.Get(), L"Ngày sinh", L"BirthDay");
    EXPECT_SUCCEEDED(combo_->put_Value(_bstr_t(L"BirthDay")));
    Save();
    EXPECT_HR(S_FALSE, As<IPersistStreamInit>(combo_)->IsDirty());

    combo_ = Create();
    Load();
    EXPECT_EQ(0x00FF00, Get(combo_.Get(), &IDataCombo1::get_BackColor));
    EXPECT_EQ(0x0000FF, Get(combo_.Get(), &IDataCombo1::get_ForeColor));
    EXPECT_EQ(VARIANT_FALSE, Get(combo_.Get(), &IDataCombo1::get_Enabled));
    EXPECT_EQ(1, Get(combo_.Get(), &IDataCombo1::get_BackStyle));
    EXPECT_EQ(2, Get(combo_.Get(), &IDataCombo1::get_BorderStyle));
    EXPECT_EQ(Mark::Underlined, MarkOf(combo_.Get()));
    EXPECT_EQ(0, Get(combo_.Get(), &IDataCombo1::get_ListCount));
    EXPECT_EQ(L"", Get(combo_.Get(), &IDataCombo1::get_Text));
    EXPECT_EQ(
        (Lines{L"BackColor", L"ForeColor", L"Enabled", L"Font", L"BackStyle", L"BorderStyle"}),
        bag_.asked)
        << "the texts are written and never read";
}

TEST_F(DataComboBagTest, MissingAndSenselessPropertiesHaveTheirDefault) {
    EXPECT_SUCCEEDED(combo_->put_BackColor(255));
    EXPECT_SUCCEEDED(combo_->put_Enabled(VARIANT_FALSE));
    bag_.values[L"ForeColor"] = L"đỏ";
    bag_.values[L"BackStyle"] = 100000L;
    bag_.values[L"BackColor"] = 0x77000000L;
    Load();
    EXPECT_EQ(kWindowColor, Get(combo_.Get(), &IDataCombo1::get_BackColor));
    EXPECT_EQ(kWindowTextColor, Get(combo_.Get(), &IDataCombo1::get_ForeColor));
    EXPECT_EQ(VARIANT_TRUE, Get(combo_.Get(), &IDataCombo1::get_Enabled));
    EXPECT_EQ(0, Get(combo_.Get(), &IDataCombo1::get_BackStyle));
}

TEST_F(DataComboBagTest, NumbersWrittenAsTextAreRead) {
    bag_.values[L"BackColor"] = L"65280";
    bag_.values[L"Enabled"] = L"False";
    Load();
    EXPECT_EQ(65280, Get(combo_.Get(), &IDataCombo1::get_BackColor));
    EXPECT_EQ(VARIANT_FALSE, Get(combo_.Get(), &IDataCombo1::get_Enabled));
}

// --- streams and storages ---

void Colour(const ComPtr<IDataCombo1>& combo) {
    EXPECT_SUCCEEDED(combo->put_BackColor(0x00FF00));
    EXPECT_SUCCEEDED(combo->put_BorderStyle(-7));
    const _variant_t font = MakeFont(Mark::Underlined, 12);
    EXPECT_SUCCEEDED(combo->putref_Font(static_cast<IFontDisp*>(V_DISPATCH(&font))));
}

void ExpectColoured(const ComPtr<IDataCombo1>& combo) {
    EXPECT_EQ(0x00FF00, Get(combo.Get(), &IDataCombo1::get_BackColor));
    EXPECT_EQ(kWindowTextColor, Get(combo.Get(), &IDataCombo1::get_ForeColor));
    EXPECT_EQ(VARIANT_TRUE, Get(combo.Get(), &IDataCombo1::get_Enabled));
    EXPECT_EQ(-7, Get(combo.Get(), &IDataCombo1::get_BorderStyle));
    EXPECT_EQ(Mark::Underlined, MarkOf(combo.Get()));
}

TEST(DataComboStreamTest, ComesBackAndRefusesWhatIsCutShort) {
    const auto combo = Create();
    Colour(combo);
    ComPtr<IStream> stream;
    ASSERT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    EXPECT_SUCCEEDED(As<IPersistStreamInit>(combo)->Save(stream.Get(), TRUE));
    EXPECT_HR(S_FALSE, As<IPersistStreamInit>(combo)->IsDirty());
    ULARGE_INTEGER most = {}, size = {};
    EXPECT_SUCCEEDED(As<IPersistStreamInit>(combo)->GetSizeMax(&most));
    const LARGE_INTEGER start = {};
    EXPECT_SUCCEEDED(stream->Seek(start, STREAM_SEEK_CUR, &size));
    EXPECT_LE(size.QuadPart, most.QuadPart);

    EXPECT_SUCCEEDED(stream->Seek(start, STREAM_SEEK_SET, nullptr));
    const auto loaded = Create();
    EXPECT_SUCCEEDED(As<IPersistStreamInit>(loaded)->Load(stream.Get()));
    ExpectColoured(loaded);
    for (ULONGLONG length = 0; length < size.QuadPart; ++length) {
        ComPtr<IStream> cut;
        ULARGE_INTEGER wanted;
        wanted.QuadPart = length;
        ASSERT_SUCCEEDED(stream->Clone(&cut));
        ComPtr<IStream> copy;
        ASSERT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &copy));
        ASSERT_SUCCEEDED(cut->Seek(start, STREAM_SEEK_SET, nullptr));
        ASSERT_SUCCEEDED(cut->CopyTo(copy.Get(), wanted, nullptr, nullptr));
        ASSERT_SUCCEEDED(copy->Seek(start, STREAM_SEEK_SET, nullptr));
        EXPECT_FAILED(As<IPersistStreamInit>(loaded)->Load(copy.Get())) << length;
    }
    ExpectColoured(loaded);
}

TEST(DataComboStreamTest, RefusesAnotherObjectsStream) {
    const auto combo = Create();
    ComPtr<IStream> stream;
    const std::string other(200, 'x');
    ASSERT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    EXPECT_SUCCEEDED(stream->Write(other.data(), static_cast<ULONG>(other.size()), nullptr));
    EXPECT_SUCCEEDED(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    EXPECT_FAILED(As<IPersistStreamInit>(combo)->Load(stream.Get()));
    EXPECT_EQ(kWindowColor, Get(combo.Get(), &IDataCombo1::get_BackColor));
}

TEST(DataComboStreamTest, ComesBackFromAStorage) {
    const auto combo = Create();
    Colour(combo);
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    ASSERT_SUCCEEDED(CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes));
    ASSERT_SUCCEEDED(StgCreateDocfileOnILockBytes(
        bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, &storage));
    EXPECT_SUCCEEDED(As<IPersistStorage>(combo)->Save(storage.Get(), TRUE));
    EXPECT_SUCCEEDED(As<IPersistStorage>(combo)->SaveCompleted(nullptr));
    const auto loaded = Create();
    EXPECT_SUCCEEDED(As<IPersistStorage>(loaded)->Load(storage.Get()));
    ExpectColoured(loaded);
}

// --- what containers ask ---

TEST(DataComboTest, FollowsTheContainersFontUntilItHasItsOwn) {
    ControlContainer container(nullptr);
    container.ambients[DISPID_AMBIENT_FONT] = MakeFont(Mark::Underlined, 20);
    const auto combo = Create();
    const long before = Height(combo);
    container.Take(combo.Get());
    EXPECT_EQ(Mark::Underlined, MarkOf(combo.Get()));
    EXPECT_LT(before, Height(combo));

    container.ambients[DISPID_AMBIENT_FONT] = MakeFont(Mark::Struck, 9);
    EXPECT_SUCCEEDED(As<IOleControl>(combo)->OnAmbientPropertyChange(DISPID_AMBIENT_FONT));
    EXPECT_EQ(Mark::Struck, MarkOf(combo.Get()));
    // What is done to the control's font does not reach the container's.
    LateBound(LateBound(combo.Get()).Get(L"Font")).Put(L"Bold", true);
    EXPECT_FALSE(
        static_cast<bool>(LateBound(container.ambients[DISPID_AMBIENT_FONT]).Get(L"Bold")));
    container.ambients[DISPID_AMBIENT_FONT] = MakeFont(Mark::Underlined, 20);
    EXPECT_SUCCEEDED(As<IOleControl>(combo)->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(Mark::Struck, MarkOf(combo.Get())) << "it is the control's own by now";
}

TEST(DataComboTest, WidthIsTheContainersAndHeightTheLists) {
    const auto combo = Create();
    const auto object = As<IOleObject>(combo);
    SIZEL size = {5080, 9999};
    EXPECT_SUCCEEDED(object->SetExtent(DVASPECT_CONTENT, &size));
    EXPECT_SUCCEEDED(object->GetExtent(DVASPECT_CONTENT, &size));
    EXPECT_EQ(5080, size.cx);
    EXPECT_LT(300, size.cy);
    EXPECT_GT(1500, size.cy);
    SIZEL view = {};
    EXPECT_SUCCEEDED(As<IViewObject2>(combo)->GetExtent(DVASPECT_CONTENT, -1, nullptr, &view));
    EXPECT_EQ(size.cy, view.cy);
    EXPECT_HR(DV_E_DVASPECT, object->GetExtent(DVASPECT_ICON, &size));
    EXPECT_HR(DV_E_DVASPECT, object->SetExtent(DVASPECT_ICON, &size));
    size.cx = -1;
    EXPECT_HR(E_INVALIDARG, object->SetExtent(DVASPECT_CONTENT, &size));
}

TEST(DataComboTest, DrawsItselfWithoutAWindow) {
    const auto combo = Create();
    AddItem(combo.Get(), L"Ngày sinh", L"BirthDay");
    EXPECT_SUCCEEDED(combo->put_ListIndex(0));
    EXPECT_SUCCEEDED(combo->put_BackColor(0x00FFFF));
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 200, 60);
    const HGDIOBJ previous = SelectObject(dc, bitmap);
    const RECT all = {0, 0, 200, 60};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    const RECTL bounds = {10, 10, 190, 34};
    EXPECT_SUCCEEDED(As<IViewObject2>(combo)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                   dc, &bounds, nullptr, nullptr, 0));
    int dark = 0, back = 0, outside = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 200; ++x) {
            const COLORREF color = GetPixel(dc, x, y);
            const bool inside = x >= 10 && x < 190 && y >= 10 && y < 34;
            outside += !inside && color != 0xFFFFFF;
            dark += inside && x < 150 && color == 0;
            back += inside && color == 0x00FFFF;
        }
    EXPECT_EQ(0, outside);
    EXPECT_LT(20, dark) << "the text";
    EXPECT_LT(1000, back);
    EXPECT_HR(DV_E_DVASPECT,
              As<IViewObject2>(combo)->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, dc,
                                            &bounds, nullptr, nullptr, 0));
    SelectObject(dc, previous);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

TEST(DataComboTest, IsSafeForScriptsAndTheirData) {
    ComPtr<IObjectSafety> safety;
    // Not every header ties the identifier to the type.
    ASSERT_SUCCEEDED(Create()->QueryInterface(IID_IObjectSafety,
                                              reinterpret_cast<void**>(safety.GetAddressOf())));
    DWORD supported = 0, enabled = 0;
    constexpr DWORD kBoth = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
    for (const IID& iid : {IID_IDispatch, IID_IPersistPropertyBag, IID_IPersistStreamInit}) {
        EXPECT_SUCCEEDED(safety->GetInterfaceSafetyOptions(iid, &supported, &enabled));
        EXPECT_EQ(kBoth, supported);
        EXPECT_SUCCEEDED(safety->SetInterfaceSafetyOptions(iid, kBoth, kBoth));
    }
    EXPECT_HR(E_NOINTERFACE, safety->GetInterfaceSafetyOptions(IID_IStream, &supported, &enabled));
    EXPECT_HR(E_FAIL, safety->SetInterfaceSafetyOptions(IID_IDispatch, 0x80, 0x80));
}

TEST(DataComboTest, NamesThePagesOfItsProperties) {
    CAUUID pages = {};
    ASSERT_SUCCEEDED(As<ISpecifyPropertyPages>(Create())->GetPages(&pages));
    ASSERT_EQ(2u, pages.cElems);
    EXPECT_TRUE(pages.pElems[0] == CLSID_CColorPropPage);
    EXPECT_TRUE(pages.pElems[1] == CLSID_CFontPropPage);
    CoTaskMemFree(pages.pElems);
}

TEST(DataComboTest, DesignersFindItsPropertiesByTheirStandardNumbers) {
    const auto combo = Create();
    ComPtr<ITypeInfo> type;
    ASSERT_SUCCEEDED(combo->GetTypeInfo(0, LOCALE_NEUTRAL, &type));
    const struct {
        const wchar_t* name;
        DISPID id;
        bool bindable;
    } kMembers[] = {
        {L"BackColor", DISPID_BACKCOLOR, true},
        {L"ForeColor", DISPID_FORECOLOR, true},
        {L"Enabled", DISPID_ENABLED, true},
        {L"Font", DISPID_FONT, true},
        {L"BackStyle", DISPID_BACKSTYLE, true},
        {L"BorderStyle", DISPID_BORDERSTYLE, true},
        {L"Refresh", DISPID_REFRESH, false},
        {L"ListIndex", DISPID_LISTINDEX, true},
        {L"ListIndex1", 1, true},
        {L"AddItem", DISPID_ADDITEM, false},
        {L"Text", DISPID_TEXT, true},
        {L"Value", 2, true},
        {L"ItemData", 3, false},
        {L"Clear", DISPID_CLEAR, false},
        {L"NewIndex", 4, false},
        {L"ListCount", DISPID_LISTCOUNT, false},
        {L"RemoveItem", DISPID_REMOVEITEM, false},
        {L"List", DISPID_LIST, false},
        {L"AccentSensitivity", 5, false},
    };
    // The vtable side: the dispatch side begins with the members of IDispatch.
    std::vector<std::wstring> order;
    for (const RegisteredClass& entry : RegisteredClasses())
        if (entry.progId == L"VnDesk.DataCombo1")
            for (const Method& method : entry.methods)
                if (order.empty() || order.back() != method.name)
                    order.push_back(method.name);
    std::vector<std::wstring> wanted;
    for (const auto& member : kMembers) {
        wanted.push_back(member.name);
        auto* name = const_cast<wchar_t*>(member.name);
        DISPID id = 0;
        EXPECT_SUCCEEDED(type->GetIDsOfNames(&name, 1, &id));
        EXPECT_EQ(member.id, id) << ToUtf8(member.name);
        FUNCDESC* function = nullptr;
        bool bindable = false;
        for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
            if (function->memid == id)
                bindable = (function->wFuncFlags & FUNCFLAG_FBINDABLE) != 0;
            type->ReleaseFuncDesc(function);
        }
        EXPECT_EQ(member.bindable, bindable) << ToUtf8(member.name);
    }
    EXPECT_EQ(wanted, order);
}

TEST(DataComboTest, IsRegisteredAsAControl) {
    CLSID clsid;
    ASSERT_SUCCEEDED(CLSIDFromProgID(L"VnDesk.DataCombo1", &clsid));
    const std::wstring key = L"Software\\Classes\\CLSID\\" + GuidText(clsid);
    const auto text = [&](const std::wstring& below) {
        return RegistryText(HKEY_LOCAL_MACHINE, key + L"\\" + below);
    };
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, key + L"\\Control"));
    EXPECT_EQ(L"0", text(L"MiscStatus"));
    EXPECT_EQ(L"131473", text(L"MiscStatus\\1"));
    EXPECT_EQ(L"1.0", text(L"Version"));
    DWORD misc = 0;
    EXPECT_SUCCEEDED(As<IOleObject>(Create())->GetMiscStatus(DVASPECT_CONTENT, &misc));
    EXPECT_EQ(131473u, misc);
    for (const wchar_t* category :
         {L"{40FC6ED4-2438-11CF-A3DB-080036F12502}", L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
          L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"})
        EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, key + L"\\Implemented Categories\\" + category))
            << ToUtf8(category);

    const std::wstring bitmap = text(L"ToolboxBitmap32");
    const size_t comma = bitmap.rfind(L", ");
    ASSERT_NE(std::wstring::npos, comma) << ToUtf8(bitmap);
    EXPECT_EQ(RegisteredDllPath(), bitmap.substr(0, comma));
    const HMODULE dll =
        LoadLibraryExW(RegisteredDllPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const int number = std::stoi(bitmap.substr(comma + 2));
    const auto picture = static_cast<HBITMAP>(
        LoadImageW(dll, MAKEINTRESOURCEW(number), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    BITMAP size = {};
    EXPECT_NE(0, GetObjectW(picture, sizeof size, &size));
    EXPECT_EQ(16, size.bmWidth);
    EXPECT_EQ(16, size.bmHeight);
    DeleteObject(picture);
    FreeLibrary(dll);
}

} // namespace
