// SPDX-License-Identifier: MIT
// The list helpers over the two kinds of list: a C++ one and an object reached by name.
#include "data/data_fixture.h"

#include <dispex.h>

#include "comkit/base/com_error.h"
#include "comkit/object/com_object.h"
#include "data/lists/late_bound_list.h"
#include "data/lists/list_box.h"
#include "find/fill_combo.h"
#include "support/late_bound.h"
#include "support/script_host.h"

namespace vndesk::test {
namespace {

// A list as the library's own ones are.
class PlainList {
public:
    void AddItem(const std::wstring& text) {
        items_.push_back({text, 0, false});
        newIndex_ = static_cast<long>(items_.size()) - 1;
    }
    void RemoveItem(long index) { items_.erase(items_.begin() + index); }
    void Clear() {
        items_.clear();
        listIndex_ = -1;
    }
    long NewIndex() const { return newIndex_; }
    long ListCount() const { return static_cast<long>(items_.size()); }
    long ListIndex() const { return listIndex_; }
    void SetListIndex(long index) {
        if (index < -1 || index >= ListCount())
            throw ComError(E_INVALIDARG);
        listIndex_ = index;
    }
    long ItemData(long index) const { return At(index).data; }
    void SetItemData(long index, long data) { At(index).data = data; }
    bool Selected(long index) const { return At(index).selected; }
    void Select(long index) { At(index).selected = true; }
    void SetText(long index, const std::wstring& text) { At(index).text = text; }
    std::wstring Text(long index) const { return At(index).text; }

private:
    struct Item {
        std::wstring text;
        long data;
        bool selected;
    };
    const Item& At(long index) const { return items_.at(static_cast<size_t>(index)); }
    Item& At(long index) { return items_.at(static_cast<size_t>(index)); }

    std::vector<Item> items_;
    long newIndex_ = -1;
    long listIndex_ = -1;
};

constexpr wchar_t kScriptList[] =
    L"Class ScriptList\n"
    L"Private texts\nPrivate datas\nPrivate marks\nPrivate count\nPrivate current\nPrivate added\n"
    L"Private Sub Class_Initialize\n"
    L"Set texts = CreateObject(\"Scripting.Dictionary\")\n"
    L"Set datas = CreateObject(\"Scripting.Dictionary\")\n"
    L"Set marks = CreateObject(\"Scripting.Dictionary\")\n"
    L"count = 0 : current = -1 : added = -1\n"
    L"End Sub\n"
    L"Public Sub AddItem(text)\n"
    L"texts(count) = text : datas(count) = 0 : marks(count) = False\n"
    L"added = count : count = count + 1\n"
    L"End Sub\n"
    L"Public Sub RemoveItem(index)\n"
    L"Dim i\n"
    L"For i = index To count - 2\n"
    L"texts(i) = texts(i + 1) : datas(i) = datas(i + 1) : marks(i) = marks(i + 1)\n"
    L"Next\n"
    L"count = count - 1\n"
    L"End Sub\n"
    L"Public Sub Clear\n"
    L"count = 0 : current = -1\n"
    L"End Sub\n"
    L"Public Property Get NewIndex\nNewIndex = added\nEnd Property\n"
    L"Public Property Get ListCount\nListCount = count\nEnd Property\n"
    L"Public Property Get ListIndex\nListIndex = current\nEnd Property\n"
    L"Public Property Let ListIndex(index)\n"
    L"If index >= count Then Err.Raise 380\n"
    L"current = index\n"
    L"End Property\n"
    L"Public Property Get ItemData(index)\nItemData = datas(index)\nEnd Property\n"
    L"Public Property Let ItemData(index, data)\ndatas(index) = data\nEnd Property\n"
    L"Public Property Get Selected(index)\nSelected = marks(index)\nEnd Property\n"
    L"Public Property Let Selected(index, mark)\nmarks(index) = mark\nEnd Property\n"
    L"Public Property Get List(index)\nList = texts(index)\nEnd Property\n"
    L"Public Property Let List(index, text)\ntexts(index) = text\nEnd Property\n"
    L"End Class\n"
    L"holder.Add \"list\", New ScriptList\n";

// Wine's script classes answer IDispatchEx only; this passes plain calls on to it.
class PlainDispatch final : public ComObject<IDispatch> {
public:
    explicit PlainDispatch(const LateBound& object) {
        object.Dispatch()->QueryInterface(IID_PPV_ARGS(&object_));
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return count == 1 ? object_->GetDispID(_bstr_t(names[0]), fdexNameCaseInsensitive, ids)
                          : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID lcid, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT*) override {
        return object_->InvokeEx(member, lcid, flags, parameters, result, exception, nullptr);
    }

private:
    ComPtr<IDispatchEx> object_;
};

// The same list as a host's script object.
class HostList {
public:
    HostList() {
        script_.AddObject(L"holder", holder_.Dispatch());
        script_.RunOk(kScriptList);
        const LateBound made(holder_.Get(L"Item", {L"list"}));
        object_ = LateBound(MakeCom<PlainDispatch>(made).Get());
        list_ = std::make_unique<LateBoundList>(object_.Dispatch());
    }

    void AddItem(const std::wstring& text) { list_->AddItem(text); }
    void RemoveItem(long index) { list_->RemoveItem(index); }
    void Clear() { list_->Clear(); }
    long NewIndex() { return list_->NewIndex(); }
    long ListCount() { return list_->ListCount(); }
    long ListIndex() { return list_->ListIndex(); }
    void SetListIndex(long index) { list_->SetListIndex(index); }
    long ItemData(long index) { return list_->ItemData(index); }
    void SetItemData(long index, long data) { list_->SetItemData(index, data); }
    bool Selected(long index) { return list_->Selected(index); }
    void SetText(long index, const std::wstring& text) { list_->SetText(index, text); }

    // What the helpers do not do is asked of the object itself.
    void Select(long index) {
        script_.RunOk(L"holder.Item(\"list\").Selected(" + std::to_wstring(index) + L") = True");
    }
    std::wstring Text(long index) {
        return static_cast<const wchar_t*>(_bstr_t(object_.Get(L"List", {index})));
    }
    const LateBound& Object() const { return object_; }
    LateBoundList& Late() { return *list_; }

private:
    LateBound holder_ = LateBound::Create(L"Scripting.Dictionary");
    ScriptRunner script_;
    LateBound object_;
    std::unique_ptr<LateBoundList> list_;
};

template <class List> class ListTest : public testing::Test {
protected:
    void Fill(std::initializer_list<const wchar_t*> texts) {
        long data = 10;
        for (const wchar_t* text : texts) {
            AddListItem(list, text, data);
            data += 10;
        }
    }
    std::vector<std::wstring> Items() {
        std::vector<std::wstring> items;
        for (long i = 0; i < list.ListCount(); ++i)
            items.push_back(list.Text(i) + L"=" + std::to_wstring(list.ItemData(i)));
        return items;
    }
    using Texts = std::vector<std::wstring>;
    List list;
};
using Lists = testing::Types<PlainList, HostList>;
class ListNames {
public:
    template <class List> static std::string GetName(int) {
        return std::is_same_v<List, PlainList> ? "Plain" : "ScriptObject";
    }
};
TYPED_TEST_SUITE(ListTest, Lists, ListNames);

TYPED_TEST(ListTest, AddedItemsCarryTheirData) {
    this->Fill({L"Hà Nội", L"Huế"});
    EXPECT_EQ((std::vector<std::wstring>{L"Hà Nội=10", L"Huế=20"}), this->Items());
}

TYPED_TEST(ListTest, TextOfTheSelectedItemIsReplaced) {
    this->Fill({L"a", L"b"});
    this->list.SetListIndex(1);
    SetListText(this->list, L"Đà Nẵng");
    EXPECT_EQ((std::vector<std::wstring>{L"a=10", L"Đà Nẵng=20"}), this->Items());
}

TYPED_TEST(ListTest, SelectedItemDataIsNothingWithoutASelection) {
    EXPECT_EQ(std::nullopt, SelectedItemData(this->list));
    this->Fill({L"a", L"b"});
    EXPECT_EQ(std::nullopt, SelectedItemData(this->list));
    this->list.SetListIndex(0);
    EXPECT_EQ(10, SelectedItemData(this->list));
}

TYPED_TEST(ListTest, FirstItemWithTheDataIsFound) {
    this->Fill({L"a", L"b", L"c"});
    this->list.SetItemData(2, 20);
    EXPECT_EQ(1, FindItemByData(this->list, 20));
    EXPECT_EQ(0, FindItemByData(this->list, 10));
    EXPECT_EQ(-1, FindItemByData(this->list, 30));
}

TYPED_TEST(ListTest, SelectedItemsAreTakenOutAndListed) {
    this->Fill({L"a", L"b", L"c", L"d", L"e"});
    for (const long index : {0L, 1L, 4L})
        this->list.Select(index);
    EXPECT_EQ(L"10,20,50", TakeSelectedItems(this->list));
    EXPECT_EQ((std::vector<std::wstring>{L"c=30", L"d=40"}), this->Items());
    EXPECT_EQ(L"", TakeSelectedItems(this->list));
    EXPECT_EQ(2, this->list.ListCount());
}

TYPED_TEST(ListTest, AllItemsMayBeTaken) {
    this->Fill({L"a", L"b"});
    this->list.Select(0);
    this->list.Select(1);
    EXPECT_EQ(L"10,20", TakeSelectedItems(this->list));
    EXPECT_EQ(0, this->list.ListCount());
}

// --- filled from the database ---

TYPED_TEST(ListTest, IsFilledInTheOrderOfTheColumn) {
    const OpenedDatabase database(Engine::Embedded);
    this->Fill({L"old"});
    FillCombo(database.opened, this->list, L"Select Code,[Name] From Groups", L"Code");
    EXPECT_EQ((std::vector<std::wstring>{L"Quản trị=1", L"Kế toán=2", L"Bán hàng=3", L"Kho=5",
                                         L"Khách=8"}),
              this->Items());
    FillCombo(database.opened, this->list, L"Select Code,[Name] From Groups Where Code<3",
              L"Code Desc");
    EXPECT_EQ((std::vector<std::wstring>{L"Kế toán=2", L"Quản trị=1"}), this->Items());
    FillCombo(database.opened, this->list, L"Select Code,[Name] From Groups Where Code=3", L"");
    EXPECT_EQ(std::vector<std::wstring>{L"Bán hàng=3"}, this->Items());
}

TYPED_TEST(ListTest, FailingStatementLeavesItemsAndSelection) {
    const OpenedDatabase database(Engine::Embedded);
    this->Fill({L"a", L"b"});
    this->list.SetListIndex(1);
    const PlainBox box = WhileClosingBox([&] {
        FillCombo(database.opened, this->list, L"Select Code,[Name] From KhongCo", L"Code");
    });
    EXPECT_EQ(L"VnDesk", box.title);
    EXPECT_EQ((std::vector<std::wstring>{L"a=10", L"b=20"}), this->Items());
    EXPECT_EQ(1, this->list.ListIndex());
}

TYPED_TEST(ListTest, SelectionBehindTheNewRowsGoesToTheFirst) {
    const OpenedDatabase database(Engine::Embedded);
    constexpr wchar_t kThree[] = L"Select Code,[Name] From Groups Where Code<=3";
    this->Fill({L"0", L"1", L"2", L"3", L"4", L"5", L"6"});
    this->list.SetListIndex(5);
    FillCombo(database.opened, this->list, kThree, L"Code");
    EXPECT_EQ(3, this->list.ListCount());
    EXPECT_EQ(0, this->list.ListIndex());

    this->list.Clear();
    this->Fill({L"0", L"1", L"2", L"3"});
    this->list.SetListIndex(3);
    FillCombo(database.opened, this->list, kThree, L"Code");
    EXPECT_EQ(0, this->list.ListIndex()) << "the first one that is gone";

    this->list.SetListIndex(2);
    FillCombo(database.opened, this->list, kThree, L"Code");
    EXPECT_EQ(2, this->list.ListIndex()) << "one that is still there is kept";
}

TYPED_TEST(ListTest, SelectionStaysEmptyAndAnEmptyResultEmptiesTheList) {
    const OpenedDatabase database(Engine::Embedded);
    FillCombo(database.opened, this->list, L"Select Code,[Name] From Groups", L"Code");
    EXPECT_EQ(-1, this->list.ListIndex());
    this->list.SetListIndex(1);
    FillCombo(database.opened, this->list, L"Select Code,[Name] From Groups Where Code=0", L"Code");
    EXPECT_EQ(0, this->list.ListCount());
    EXPECT_EQ(-1, this->list.ListIndex()) << "there is nothing to select; nothing is raised";
    EXPECT_TRUE(TopWindows().empty());
}

TYPED_TEST(ListTest, NullAndTextCodesAreTakenAsTheyAre) {
    const OpenedDatabase database(Engine::Embedded);
    FillCombo(database.opened, this->list,
              L"Select KeyName,KeyValue From Options Where [Section]='BaoCao'", L"KeyName");
    EXPECT_EQ((std::vector<std::wstring>{L"=0", L"=0", L"40=0"}), this->Items());
}

constexpr wchar_t kKinds[] = L"Select MaNhom,TenNhom From NhomHang Where MaNhom<'M'";

// A list whose item data are texts gets the codes as they are.
struct TextList {
    std::vector<std::pair<std::wstring, std::wstring>> items;
    void AddItem(const std::wstring& text) { items.emplace_back(text, L""); }
    void Clear() { items.clear(); }
    long NewIndex() const { return ListCount() - 1; }
    long ListCount() const { return static_cast<long>(items.size()); }
    long ListIndex() const { return -1; }
    void SetListIndex(long) {}
    void SetItemData(long index, const std::wstring& data) {
        items[static_cast<size_t>(index)].second = data;
    }
};

TEST(FillComboTest, TextListGetsTheCodesAsText) {
    const OpenedDatabase database(Engine::Embedded);
    TextList list;
    FillCombo(database.opened, list, kKinds, L"MaNhom");
    EXPECT_EQ((std::vector<std::pair<std::wstring, std::wstring>>{{L"Điện tử", L"DT"},
                                                                  {L"Đồ gia dụng", L"GD"}}),
              list.items);
    FillCombo(database.opened, list, L"Select Code,[Name] From Groups Where Code=3", L"");
    EXPECT_EQ(L"3", list.items.at(0).second);
}

TEST(FillComboTest, HostsListGetsTheValueItself) {
    const OpenedDatabase database(Engine::Embedded);
    HostList list;
    FillCombo(database.opened, list.Late(), kKinds, L"MaNhom");
    ASSERT_EQ(2, list.ListCount());
    EXPECT_EQ(_variant_t(L"GD"), list.Object().Get(L"ItemData", {1L}));
    FillCombo(database.opened, list.Late(), L"Select Code,[Name] From Groups Where Code=3", L"");
    EXPECT_EQ(3, list.ItemData(0));
}

TEST(LateBoundListTest, ObjectWithoutTheMemberRaises) {
    const LateBound dictionary = LateBound::Create(L"Scripting.Dictionary");
    LateBoundList list(dictionary.Dispatch());
    try {
        list.AddItem(L"a");
        FAIL() << "a dictionary has no AddItem";
    } catch (const ComError& error) {
        EXPECT_EQ(DISP_E_UNKNOWNNAME, error.Code());
    }
}

} // namespace
} // namespace vndesk::test
