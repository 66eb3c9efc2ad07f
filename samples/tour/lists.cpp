// SPDX-License-Identifier: MIT
#include "lists.h"

namespace {

constexpr Column kCustomerColumns[] = {
    {L"Mã", 70}, {L"Tên khách hàng", 230}, {L"Địa chỉ", 270}, {L"Công nợ", 110, true}};
constexpr Column kGoodsColumns[] = {{L"Mã", 70},     {L"Tên hàng", 240}, {L"Nhóm", 70},
                                    {L"Đơn vị", 80}, {L"Tồn", 80, true}, {L"Đơn giá", 110, true}};
constexpr Column kCodeAndName[] = {{L"Mã", 90}, {L"Tên", 300}};
constexpr Column kStockColumns[] = {
    {L"Tên hàng", 270}, {L"Đơn vị", 90}, {L"Tồn", 90, true}, {L"Giá trị", 150, true}};
constexpr Column kDebtColumns[] = {{L"Tên khách hàng", 320}, {L"Công nợ", 150, true}};

} // namespace

const List kCustomers = {L"Khách hàng",
                         L"SELECT MaKH,[Name],DiaChi,CongNo FROM KhachHang ORDER BY MaKH",
                         kCustomerColumns};
const List kGoods = {
    L"Hàng hoá", L"SELECT MaHang,TenHang,MaNhom,DonVi,SoLuong,DonGia FROM HangHoa ORDER BY MaHang",
    kGoodsColumns};
const List kKindsOfGoods = {L"Nhóm hàng", L"SELECT MaNhom,TenNhom FROM NhomHang ORDER BY MaNhom",
                            kCodeAndName};
const List kProvinces = {L"Tỉnh thành", L"SELECT Code,[Name] FROM TinhThanh ORDER BY Code",
                         kCodeAndName};
const List kStock = {
    L"Tồn kho",
    L"SELECT TenHang,DonVi,SoLuong,SoLuong*DonGia FROM HangHoa WHERE SoLuong>0 ORDER BY MaHang",
    kStockColumns};
const List kReceivables = {
    L"Công nợ phải thu", L"SELECT [Name],CongNo FROM KhachHang WHERE CongNo>0 ORDER BY CongNo DESC",
    kDebtColumns};

const Search kFindCustomers = {L"KhachHang",
                               {L"Khách hàng tìm được",
                                L"SELECT MaKH,[Name],DiaChi,CongNo FROM KhachHang WHERE ",
                                kCustomerColumns},
                               L" ORDER BY MaKH"};
const Search kFindGoods = {
    L"HangHoa",
    {L"Hàng hoá tìm được", L"SELECT MaHang,TenHang,MaNhom,DonVi,SoLuong,DonGia FROM HangHoa WHERE ",
     kGoodsColumns},
    L" ORDER BY MaHang"};
